#include "automation/CVariants.h"

#include <cstdlib>
#include <cstring>
#include <vector>

#include "automation/ObjectHandle.h"
#include "automation/VariantArray.h"
#include "platform/RuntimeError.h"

namespace kelmora {

namespace {

// Arrays inside arrays are followed this deep at most; deeper fails as the
// run time does when its stack runs out, rather than exhausting ours.
void checkDepth(int depth) {
  if (depth > CVariants::kMaxArrayDepth)
    throw RuntimeError(kOutOfStackSpace);
}

}  // namespace

std::optional<Variant> CVariants::toVariant(const kelmora_variant& value) {
  return toVariant(value, 1);
}

std::optional<Variant> CVariants::toVariant(const kelmora_variant& value, int depth) {
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
      checkDepth(depth);
      if (value.value.array.count > 0 && value.value.array.items == nullptr)
        throw RuntimeError(kInvalidProcedureCall);
      auto array = std::make_shared<VariantArray>();
      for (int32_t i = 0; i < value.value.array.count; ++i) {
        auto item = toVariant(value.value.array.items[i], depth + 1);
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
  // A failure leaves nothing half made behind for the host to clear.
  try {
    fromVariant(value, out, 1);
  } catch (const RuntimeError&) {
    kelmora_variant_clear(&out);
    throw;
  }
}

void CVariants::fromVariant(const Variant& value, kelmora_variant& out, int depth) {
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
    checkDepth(depth);
    kelmora_variant_set_array(&out, static_cast<int32_t>(array->items.size()));
    for (size_t i = 0; i < array->items.size(); ++i)
      fromVariant(array->items[i], out.value.array.items[i], depth + 1);
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

// The C functions a host uses on variants and errors. They stand with the
// conversions, so that the library's own code that fills a host's variants
// links without the rest of the C interface.
extern "C" {

void kelmora_variant_init(kelmora_variant* variant) {
  if (variant == nullptr)
    return;
  std::memset(variant, 0, sizeof *variant);
  variant->type = KELMORA_VT_EMPTY;
}

void kelmora_variant_clear(kelmora_variant* variant) {
  if (variant == nullptr)
    return;
  // Without recursion: a host may hand over arrays nested however deep.
  // An array's items are cleared before the array itself.
  struct Pending {
    kelmora_variant* variant;
    int32_t next;
  };
  std::vector<Pending> pending{{variant, 0}};
  while (!pending.empty()) {
    auto& top = pending.back();
    kelmora_variant* current = top.variant;
    if (current->type == KELMORA_VT_ARRAY && current->value.array.items != nullptr &&
        top.next < current->value.array.count) {
      pending.push_back({&current->value.array.items[top.next++], 0});
      continue;
    }
    pending.pop_back();
    switch (current->type) {
      case KELMORA_VT_STRING:
        std::free(current->value.string);
        break;
      case KELMORA_VT_OBJECT:
        kelmora_release(current->value.object);
        break;
      case KELMORA_VT_ARRAY:
        std::free(current->value.array.items);
        break;
      default:
        break;
    }
    kelmora_variant_init(current);
  }
}

void kelmora_variant_set_string(kelmora_variant* variant, const char* text) {
  if (variant == nullptr)
    return;
  kelmora_variant_clear(variant);
  const char* from = text != nullptr ? text : "";
  size_t size = std::strlen(from) + 1;
  auto* copy = static_cast<char*>(std::malloc(size));
  if (copy == nullptr)
    return;
  std::memcpy(copy, from, size);
  variant->type = KELMORA_VT_STRING;
  variant->value.string = copy;
}

void kelmora_variant_set_array(kelmora_variant* variant, int32_t count) {
  if (variant == nullptr)
    return;
  kelmora_variant_clear(variant);
  if (count < 0)
    return;
  auto* items = static_cast<kelmora_variant*>(
      std::calloc(static_cast<size_t>(count > 0 ? count : 1), sizeof(kelmora_variant)));
  if (items == nullptr)
    return;
  for (int32_t i = 0; i < count; ++i) kelmora_variant_init(&items[i]);
  variant->type = KELMORA_VT_ARRAY;
  variant->value.array.count = count;
  variant->value.array.items = items;
}

void kelmora_variant_set_object(kelmora_variant* variant, kelmora_object* object) {
  if (variant == nullptr)
    return;
  kelmora_add_ref(object);
  kelmora_variant_clear(variant);
  variant->type = KELMORA_VT_OBJECT;
  variant->value.object = object;
}

void kelmora_error_set(kelmora_error* error, int32_t number, const char* description) {
  if (error == nullptr)
    return;
  kelmora_error_clear(error);
  error->number = number;
  const char* from = description != nullptr ? description : "";
  size_t size = std::strlen(from) + 1;
  error->description = static_cast<char*>(std::malloc(size));
  if (error->description != nullptr)
    std::memcpy(error->description, from, size);
}

void kelmora_error_clear(kelmora_error* error) {
  if (error == nullptr)
    return;
  std::free(error->description);
  error->description = nullptr;
  error->number = 0;
}

}  // extern "C"
