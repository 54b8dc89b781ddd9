#include "automation/CVariants.h"

#include <gtest/gtest.h>

#include "automation/VariantArray.h"
#include "support/ErrorOf.h"

namespace kelmora {
namespace {

using testing::errorOf;

// An array inside an array, `depth` levels deep, with a text at the bottom.
kelmora_variant nested(int depth) {
  kelmora_variant outer;
  kelmora_variant_init(&outer);
  kelmora_variant* level = &outer;
  for (int i = 0; i < depth; ++i) {
    kelmora_variant_set_array(level, 1);
    level = &level->value.array.items[0];
  }
  kelmora_variant_set_string(level, "bottom");
  return outer;
}

// A host's argument or a host object's answer nested however deep fails
// with the run time's number for a stack that ran out, instead of
// exhausting the library's; clearing it takes no stack either.
TEST(CVariantsTest, ArraysNestedPastTheLimitFailRatherThanOverflowTheStack) {
  struct Row {
    int depth;
    int32_t error;
  };
  const Row rows[] = {{1, 0},
                      {CVariants::kMaxArrayDepth, 0},
                      {CVariants::kMaxArrayDepth + 1, kOutOfStackSpace},
                      {200000, kOutOfStackSpace}};
  for (const auto& row : rows) {
    auto given = nested(row.depth);
    EXPECT_EQ(errorOf([&] { CVariants::toVariant(given); }), row.error) << row.depth;
    kelmora_variant_clear(&given);
    EXPECT_EQ(given.type, KELMORA_VT_EMPTY);
  }
}

TEST(CVariantsTest, ALibraryArrayTooDeepToHandBackFails) {
  auto make = [](int depth) {
    Variant value("bottom");
    for (int i = 0; i < depth; ++i)
      value = Variant(std::shared_ptr<Object>(std::make_shared<VariantArray>(std::vector{value})));
    return value;
  };
  kelmora_variant out;
  kelmora_variant_init(&out);
  EXPECT_EQ(errorOf([&] { CVariants::fromVariant(make(CVariants::kMaxArrayDepth), out); }), 0);
  EXPECT_EQ(errorOf([&] { CVariants::fromVariant(make(CVariants::kMaxArrayDepth + 1), out); }),
            kOutOfStackSpace);
  kelmora_variant_clear(&out);
}

}  // namespace
}  // namespace kelmora
