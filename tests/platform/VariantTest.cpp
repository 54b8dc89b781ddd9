#include "platform/Variant.h"

#include <gtest/gtest.h>

#include <limits>
#include <optional>

#include "platform/RuntimeError.h"

namespace kelmora {
namespace {

// The conversion's result, or the error number it fails with.
template <typename Convert>
auto outcome(Convert convert) -> std::pair<std::optional<decltype(convert())>, int32_t> {
  try {
    return {convert(), 0};
  } catch (const RuntimeError& error) {
    return {std::nullopt, error.Number()};
  }
}

class Captioned : public Object {
 public:
  Variant DefaultValue() const override { return Variant("12"); }
};

TEST(VariantTest, ToInteger) {
  struct Row {
    Variant value;
    std::optional<int16_t> expected;
    int32_t error;
  };
  const Row rows[] = {
      {Variant(), 0, 0},
      {Variant("17"), 17, 0},
      {Variant(" -3 "), -3, 0},
      {Variant("2.5"), 2, 0},  // half to even
      {Variant("3.5"), 4, 0},
      {Variant(true), -1, 0},
      {Variant(int32_t{32767}), 32767, 0},
      {Variant(""), std::nullopt, kTypeMismatch},
      {Variant("abc"), std::nullopt, kTypeMismatch},
      {Variant("12abc"), std::nullopt, kTypeMismatch},
      {Variant(int32_t{32768}), std::nullopt, kOverflow},
      {Variant("-40000"), std::nullopt, kOverflow},
      {Variant(std::numeric_limits<float>::quiet_NaN()), std::nullopt, kOverflow},
      {Variant(std::numeric_limits<float>::infinity()), std::nullopt, kOverflow},
      {Variant(std::shared_ptr<Object>(std::make_shared<Captioned>())), 12, 0},
      {Variant(std::shared_ptr<Object>()), std::nullopt, kObjectNotSet},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.value.typeName() + " " +
                 (row.value.kind() == Variant::Kind::String ? row.value.toString() : ""));
    auto [value, error] = outcome([&] { return row.value.toInteger(); });
    EXPECT_EQ(value, row.expected);
    EXPECT_EQ(error, row.error);
  }
}

// A host's answer of NaN where a 32-bit number is read fails as an
// infinity does, rather than reaching an undefined conversion.
TEST(VariantTest, ToLongRefusesWhatIsNoFiniteNumber) {
  for (float value :
       {std::numeric_limits<float>::quiet_NaN(), -std::numeric_limits<float>::quiet_NaN(),
        std::numeric_limits<float>::infinity()}) {
    EXPECT_EQ(outcome([&] { return Variant(value).toLong(); }).second, kOverflow) << value;
  }
  EXPECT_EQ(outcome([] { return Variant(3.5f).toLong(); }).first, 4);
}

TEST(VariantTest, ToBoolean) {
  struct Row {
    Variant value;
    std::optional<bool> expected;
    int32_t error;
  };
  const Row rows[] = {
      {Variant("True"), true, 0},
      {Variant("false"), false, 0},
      {Variant("TRUE"), true, 0},
      {Variant("0"), false, 0},
      {Variant("-1"), true, 0},
      {Variant(int16_t{0}), false, 0},
      {Variant(int32_t{2}), true, 0},
      {Variant(), false, 0},
      {Variant("yes"), std::nullopt, kTypeMismatch},
      {Variant(""), std::nullopt, kTypeMismatch},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.value.typeName() + " '" +
                 (row.value.kind() == Variant::Kind::String ? row.value.toString() : "") + "'");
    auto [value, error] = outcome([&] { return row.value.toBoolean(); });
    EXPECT_EQ(value, row.expected);
    EXPECT_EQ(error, row.error);
  }
}

TEST(VariantTest, ToText) {
  EXPECT_EQ(Variant().toString(), "");
  EXPECT_EQ(Variant(true).toString(), "True");
  EXPECT_EQ(Variant(false).toString(), "False");
  EXPECT_EQ(Variant(int16_t{-12}).toString(), "-12");
  EXPECT_EQ(Variant(73.5f).toString(), "73.5");
  EXPECT_EQ(Variant(1215.0f).toString(), "1215");
  EXPECT_EQ(Variant(std::shared_ptr<Object>(std::make_shared<Captioned>())).toString(), "12");
  auto [text, error] = outcome([] { return Variant(std::make_shared<Object>()).toString(); });
  EXPECT_EQ(error, kMemberNotSupported);
}

}  // namespace
}  // namespace kelmora
