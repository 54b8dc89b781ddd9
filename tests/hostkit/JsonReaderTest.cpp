#include "hostkit/JsonReader.h"

#include <gtest/gtest.h>

#include "hostkit/BadInput.h"

namespace kelmora::host {
namespace {

// Reading has to take time in proportion to the input: a reader that looks
// back over what it has read after each value spends many seconds on these.
constexpr size_t kWide = 200000;

std::string emptyObjects() {
  std::string text = "{}";
  for (size_t i = 1; i < kWide; ++i) text += ",{}";
  return text;
}

std::string nested(int levels, const std::string& inside) {
  return std::string(levels, '[') + inside + std::string(levels, ']');
}

// Each row: an input, and what it must come to: empty for a document read
// whole, else a word of the one-line refusal.
struct ReadRow {
  std::string what;
  std::string text;
  std::string refusal;
};

TEST(JsonReaderTest, LargeInputsAreReadOrRefusedWhole) {
  const std::string objects = emptyObjects();
  const std::vector<ReadRow> rows = {
      {"wide array", "[" + objects + "]", ""},
      {"wide array at the deepest level allowed", nested(JsonReader::kMaxDepth - 1, objects), ""},
      {"wide array one level too deep", nested(JsonReader::kMaxDepth, objects), "nested more than"},
      {"wide array, then too deep", "[" + objects + "," + nested(JsonReader::kMaxDepth, "") + "]",
       "nested more than"},
      {"wide array, never closed", "[" + objects, "not valid JSON"},
  };
  for (const auto& row : rows) {
    try {
      Json document = JsonReader::parse(row.text, "input");
      EXPECT_EQ(row.refusal, "") << row.what;
      // Unwrap to the wide level, which must hold every object read.
      while (document.is_array() && document.size() == 1) document = Json(document[0]);
      EXPECT_EQ(document.size(), kWide) << row.what;
    } catch (const BadInput& refusal) {
      EXPECT_NE(row.refusal, "") << row.what << ": " << refusal.what();
      EXPECT_NE(std::string(refusal.what()).find(row.refusal), std::string::npos)
          << row.what << ": " << refusal.what();
    }
  }
}

}  // namespace
}  // namespace kelmora::host
