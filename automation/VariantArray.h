#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Object.h"
#include "platform/Variant.h"

namespace kelmora {

// An array travelling in a Variant across the component boundary, indexed
// from 0. A callee that changes an array passed by reference changes this
// object, so the caller sees the change.
class VariantArray : public Object {
 public:
  VariantArray() = default;
  explicit VariantArray(std::vector<Variant> items) : items(std::move(items)) {}

  std::string TypeName() const override { return "Variant()"; }

  std::vector<Variant> items;

  std::vector<std::string> strings() const;
  void assign(const std::vector<std::string>& values);
  static std::shared_ptr<VariantArray> of(const std::vector<int16_t>& values);
};

}  // namespace kelmora
