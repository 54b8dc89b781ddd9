#include "automation/CVariants.h"

#include <cstdlib>
#include <cstring>

#include "automation/ObjectHandle.h"
#include "automation/VariantArray.h"
#include "platform/RuntimeError.h"

namespace kelmora {

std::optional<Variant> CVariants::toVariant(const kelmora_variant& value) {
  switch (value.type) {
    case KELMORA_VT_EMPTY:
      return Variant();
    case KELMORA_VT_INTEGER:
      return Variant(value.value.integer);
    case KELMORA_VT_LONG:
      return Variant(value.value.long_value);
    case KELMORA_VT_SINGLE:
      return Variant(value.value.single);
    case KELMORA_VT_BOOLEAN:
      return Variant(value.value.boolean != 0);
    case KELMORA_VT_STRING:
      return Variant(std::string(value.value.string != nullptr ? value.value.string : ""));
    case KELMORA_VT_OBJECT:
      return Variant(value.value.object != nullptr ? value.value.object->object
                                                   : std::shared_ptr<Object>{});
    case KELMORA_VT_MISSING:
      return std::nullopt;
    case KELMORA_VT_ARRAY: {
      auto array = std::make_shared<VariantArray>();
      for (int32_t i = 0; i < value.value.array.count; ++i) {
        auto item = toVariant(value.value.array.items[i]);
        array->items.push_back(item.value_or(Variant()));
      }
      return Variant(std::shared_ptr<Object>(array));
    }
    default:
      // A kind the library does not know: refused rather than guessed.
      throw RuntimeError(kTypeMismatch);
  }
}

void CVariants::fromVariant(const Variant& value, kelmora_variant& out) {
  kelmora_variant_clear(&out);
  switch (value.kind()) {
    case Variant::Kind::Empty:
      return;
    case Variant::Kind::Boolean:
      out.type = KELMORA_VT_BOOLEAN;
      out.value.boolean = value.toBoolean() ? -1 : 0;
      return;
    case Variant::Kind::Integer:
      out.type = KELMORA_VT_INTEGER;
      out.value.integer = value.toInteger();
      return;
    case Variant::Kind::Long:
      out.type = KELMORA_VT_LONG;
      out.value.long_value = value.toLong();
      return;
    case Variant::Kind::Single:
      out.type = KELMORA_VT_SINGLE;
      out.value.single = value.toSingle();
      return;
    case Variant::Kind::String:
      kelmora_variant_set_string(&out, value.toString().c_str());
      return;
    case Variant::Kind::Object:
      break;
  }
  const auto& object = value.toObject();
  if (auto array = std::dynamic_pointer_cast<VariantArray>(object)) {
    kelmora_variant_set_array(&out, static_cast<int32_t>(array->items.size()));
    for (size_t i = 0; i < array->items.size(); ++i)
      fromVariant(array->items[i], out.value.array.items[i]);
    return;
  }
  out.type = KELMORA_VT_OBJECT;
  out.value.object = object ? kelmora_object::make(object) : nullptr;
}

void CVariants::writeBack(const std::optional<Variant>& before, const std::optional<Variant>& after,
                          kelmora_variant& out) {
  if (!after.has_value())
    return;
  const bool isArray =
      after->isObject() && std::dynamic_pointer_cast<VariantArray>(after->toObject());
  if (isArray || !before.has_value() || !(*before == *after))
    fromVariant(*after, out);
}

}  // namespace kelmora
