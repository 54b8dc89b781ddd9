#include "automation/VariantArray.h"

namespace kelmora {

std::vector<std::string> VariantArray::strings() const {
  std::vector<std::string> out;
  out.reserve(items.size());
  for (const auto& item : items) out.push_back(item.toString());
  return out;
}

void VariantArray::assign(const std::vector<std::string>& values) {
  items.assign(values.begin(), values.end());
}

std::shared_ptr<VariantArray> VariantArray::of(const std::vector<int16_t>& values) {
  auto array = std::make_shared<VariantArray>();
  array->items.assign(values.begin(), values.end());
  return array;
}

}  // namespace kelmora
