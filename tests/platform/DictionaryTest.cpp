#include "platform/Dictionary.h"

#include <gtest/gtest.h>

#include "support/ErrorOf.h"

namespace kelmora {
namespace {

using testing::errorOf;

TEST(DictionaryTest, KeepsInsertionOrderAndRefusesADuplicateKey) {
  Dictionary map;
  map.Add("zeta", Variant(int16_t{1}));
  map.Add("alpha", Variant(int16_t{2}));
  map.Add("Alpha", Variant(int16_t{3}));  // binary comparison: another key
  EXPECT_EQ(errorOf([&] { map.Add("alpha", Variant(int16_t{9})); }), kKeyAlreadyExists);
  EXPECT_EQ(map.Keys(), (std::vector<std::string>{"zeta", "alpha", "Alpha"}));
  EXPECT_EQ(map.ItemAt(1).toInteger(), 2);
  EXPECT_EQ(map.KeyAt(2), "Alpha");
  EXPECT_EQ(errorOf([&] { map.KeyAt(3); }), kSubscriptOutOfRange);
}

TEST(DictionaryTest, ReadingAMissingKeyAddsItEmpty) {
  Dictionary map;
  map.Add("a", Variant("x"));
  EXPECT_FALSE(map.Exists("b"));
  EXPECT_TRUE(map.Item("b").isEmpty());
  EXPECT_TRUE(map.Exists("b"));
  EXPECT_EQ(map.Count(), 2);
  // The added key now blocks an Add, as the rule table relies on.
  EXPECT_EQ(errorOf([&] { map.Add("b", Variant("y")); }), kKeyAlreadyExists);
  // A later Add goes behind it.
  map.Add("c", Variant("z"));
  EXPECT_EQ(map.Keys(), (std::vector<std::string>{"a", "b", "c"}));
}

TEST(DictionaryTest, RemoveKeepsTheOrderOfTheRest) {
  Dictionary map;
  for (const char* key : {"a", "b", "c", "d"}) map.Add(key, Variant(key));
  map.Remove("b");
  EXPECT_EQ(map.Keys(), (std::vector<std::string>{"a", "c", "d"}));
  EXPECT_EQ(map.Items()[1].toString(), "c");
  EXPECT_EQ(errorOf([&] { map.Remove("b"); }), kInvalidProcedureCall);
  map.RemoveAll();
  EXPECT_EQ(map.Count(), 0);
  EXPECT_TRUE(map.Keys().empty());
}

}  // namespace
}  // namespace kelmora
