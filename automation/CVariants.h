#pragma once

#include <optional>

#include "automation/kelmora.h"
#include "platform/Variant.h"

namespace kelmora {

// Conversions between the C variant of the boundary and the library's
// Variant. Arrays become VariantArray objects and back; an object crosses
// as a new handle on the same object.
class CVariants {
 public:
  // How deep arrays may nest, the outermost counting as 1; deeper fails
  // with 28, "Out of stack space".
  static constexpr int kMaxArrayDepth = KELMORA_MAX_ARRAY_DEPTH;

  // Missing gives nothing, so that the argument is omitted.
  static std::optional<Variant> toVariant(const kelmora_variant& value);
  // Clears `out` first.
  static void fromVariant(const Variant& value, kelmora_variant& out);
  // Writes a by-reference argument back when the callee changed it: an
  // array always, anything else when it differs from what went in, so
  // that an unchanged object keeps the host's own handle.
  static void writeBack(const std::optional<Variant>& before, const std::optional<Variant>& after,
                        kelmora_variant& out);

 private:
  static std::optional<Variant> toVariant(const kelmora_variant& value, int depth);
  static void fromVariant(const Variant& value, kelmora_variant& out, int depth);
};

}  // namespace kelmora
