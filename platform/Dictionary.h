#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <tsl/ordered_map.h>

#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// The scripting run time's key-to-value map: keys are texts compared
// binary, insertion order is kept, Add of an existing key fails with 457,
// and reading a missing key through Item adds it with an empty value. Model
// and the rule table depend on both behaviours.
class Dictionary : public Object {
 public:
  std::string TypeName() const override { return "Dictionary"; }

  void Add(const std::string& key, Variant item);
  bool Exists(std::string_view key) const;
  int32_t Count() const { return static_cast<int32_t>(mItems.size()); }

  // Read or write access; a missing key is added with an empty value.
  Variant& Item(std::string_view key);
  // Removing a key that is not there fails with 5.
  void Remove(const std::string& key);
  void RemoveAll() { mItems.clear(); }

  // Keys and items by position, in insertion order; a position outside the
  // map fails with 9.
  const std::string& KeyAt(int32_t position) const;
  const Variant& ItemAt(int32_t position) const;
  std::vector<std::string> Keys() const;
  std::vector<Variant> Items() const;

 private:
  // Looked up by view as well, so that reading a key out of a widget's tag
  // copies nothing.
  struct KeyHash {
    using is_transparent = void;
    size_t operator()(std::string_view key) const { return std::hash<std::string_view>{}(key); }
  };
  tsl::ordered_map<std::string, Variant, KeyHash, std::equal_to<>> mItems;
};

}  // namespace kelmora
