#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "automation/Guid.h"

namespace kelmora {

// What the outside world may rely on: the library's type library as
// literal tables. Classes with their identifiers, each interface with its
// members in slot order, every member with its dispatch id, kind,
// arguments and result. The dispatchers check calls against these rows,
// and the identifier records are produced from them.
class TypeLibrary {
 public:
  // The invoke kinds of the component model; a member answers the kinds
  // whose bit it carries.
  enum Kind : int32_t { kMethod = 1, kPropertyGet = 2, kPropertyPut = 4 };

  // What an argument or result holds.
  enum class Type {
    None,
    Integer,  // 16-bit
    Long,     // 32-bit
    Boolean,  // 16-bit, True -1
    String,
    Variant,
    Object,
    StringArray,
    IntegerArray,
    Dictionary,  // the scripting run time's key-to-value map
    DataObject,  // the toolkit's drag-and-drop data object
    Model,
  };

  // What an omitted optional argument becomes.
  enum class Default { Required, Nothing, False, MinusOne, EmptyText };

  struct Argument {
    const char* name = nullptr;
    Type type = Type::None;
    Default fallback = Default::Required;
  };

  struct Member {
    int32_t dispid;
    const char* name;
    Kind kind;
    std::array<Argument, 6> arguments;
    Type result;

    size_t argumentCount() const;
    size_t requiredCount() const;
  };

  struct Interface {
    const char* name;
    Guid iid;
    std::span<const Member> members;
  };

  enum class ClassKind { Creatable, Control, NotCreatable };

  struct Class {
    const char* name;
    Guid clsid;
    ClassKind kind;
    const char* defaultInterface;
    const char* eventInterface;  // nullptr where the class has none
    Guid eventIid;
  };

  // One of the named binary records: the 32-bit number 16, then the
  // identifier of the interface of that name.
  struct IdentifierRecord {
    std::string name;
    std::array<uint8_t, 20> bytes;
  };

  static constexpr const char* kName = "Kelmora";
  static constexpr uint16_t kMajorVersion = 1;
  static constexpr uint16_t kMinorVersion = 0;
  static constexpr uint32_t kLocale = 1033;
  static const Guid kIdentifier;

  static std::span<const Class> classes();
  static std::span<const Interface> interfaces();

  // Lookups by exact name or identifier; nullptr where there is none.
  static const Class* classNamed(std::string_view name);
  static const Class* classWithId(const Guid& clsid);
  static const Interface* interfaceNamed(std::string_view name);

  // The member of an interface that answers a name, compared without
  // regard to case as late binding does; nullptr where none does.
  static const Member* memberNamed(const Interface& interface, std::string_view name);
  // The member with this dispatch id that answers one of the kinds.
  static const Member* memberWithId(const Interface& interface, int32_t dispid, int32_t kinds);

  // The eleven records, in the order of their names.
  static std::vector<IdentifierRecord> identifierRecords();
};

}  // namespace kelmora
