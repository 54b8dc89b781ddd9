#pragma once

#include <memory>
#include <string>

#include "automation/TypeLibrary.h"
#include "platform/Object.h"

namespace kelmora {

// The class object of a creatable class or a control: it makes new
// instances of its class, each with the library's start-up done for the
// thread.
class ClassFactory : public Object {
 public:
  explicit ClassFactory(const TypeLibrary::Class& c) : mClass(&c) {}

  std::string TypeName() const override { return "ClassFactory"; }

  // The class object of a class identifier, or nothing for a class that
  // has none or an identifier the library does not know.
  static std::shared_ptr<ClassFactory> of(const Guid& clsid);

  std::shared_ptr<Object> CreateInstance() const;

 private:
  const TypeLibrary::Class* mClass;
};

}  // namespace kelmora
