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
  // Missing gives nothing, so that the argument is omitted.
  static std::optional<Variant> toVariant(const kelmora_variant& value);
  // Clears `out` first.
  static void fromVariant(const Variant& value, kelmora_variant& out);
  // Writes a by-reference argument back when the callee changed it: an
  // array always, anything else when it differs from what went in, so
  // that an unchanged object keeps the host's own handle.
  static void writeBack(const std::optional<Variant>& before, const std::optional<Variant>& after,
                        kelmora_variant& out);
};

}  // namespace kelmora
