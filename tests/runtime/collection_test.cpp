#include "varnex/collection.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "support/errors.hpp"
#include "varnex/enumerator.hpp"

namespace varnex {
namespace {

std::vector<std::string> Texts(const Collection& collection) {
  std::vector<std::string> texts;
  for (const Variant& item : collection) texts.push_back(item.AsString());
  return texts;
}

TEST(CollectionTest, PositionsAreOneBasedAndKeysIgnoreCase) {
  Collection c;
  EXPECT_AUTOMATION_ERROR(c.Item(1), errSubscriptOutOfRange, "Subscript out of range");
  c.Add("one", "First");
  c.Add("two");
  c.Add(3, "Third");
  EXPECT_EQ(c.Count(), 3);
  EXPECT_EQ(c.Item(2).AsString(), "two");
  EXPECT_EQ(c.Item("FIRST").AsString(), "one");
  EXPECT_EQ(c.Item("third").AsLong(), 3);
  for (const Variant& position : {Variant(0), Variant(4), Variant(), Variant::FromBoolean(vbTrue)}) {
    EXPECT_AUTOMATION_ERROR(c.Item(position), errSubscriptOutOfRange, "Subscript out of range");
  }
  // Text is always a key, even when it spells a number.
  EXPECT_AUTOMATION_ERROR(c.Item("2"), errInvalidProcedureCall, "Invalid procedure call or argument");
  EXPECT_AUTOMATION_ERROR(c.Add("again", "fIRST"), errDuplicateKey,
                          "This key is already associated with an element of this collection");
  c.Add("four", "");
  EXPECT_EQ((std::vector<std::string>{"one", "two", "3", "four"}), Texts(c));
}

TEST(CollectionTest, RemovalKeepsKeysPointingAtTheirItems) {
  Collection c;
  for (const char* key : {"a", "b", "c", "d", "e"}) c.Add(std::string(key) + "!", key);
  c.Remove(3);
  c.Remove("A");
  EXPECT_EQ((std::vector<std::string>{"b!", "d!", "e!"}), Texts(c));
  EXPECT_EQ(c.Item("E").AsString(), "e!");
  EXPECT_AUTOMATION_ERROR(c.Item("c"), errInvalidProcedureCall, "Invalid procedure call or argument");
  c.Add("new c", "c");  // a removed key is free again
  EXPECT_EQ(c.Item(4).AsString(), "new c");

  // Draining from the front, past the point where the removed slots are dropped.
  Collection many;
  for (int i = 1; i <= 1000; ++i) many.Add(i, "k" + std::to_string(i));
  for (int i = 1; i <= 700; ++i) {
    ASSERT_EQ(many.Item(1).AsLong(), i);
    many.Remove(1);
  }
  EXPECT_EQ(many.Count(), 300);
  EXPECT_EQ(many.Item("K1000").AsLong(), 1000);
  many.Add(-1, "k1");
  EXPECT_EQ(many.Item(301), many.Item("k1"));
  while (many.Count() > 0) many.Remove(1);
  EXPECT_EQ(many.begin(), many.end());
}

TEST(CollectionTest, EnumeratorWalksByPosition) {
  auto c = std::make_shared<Collection>();
  c->Add("a");
  c->Add("b");
  Enumerator walk(c);
  Variant item;
  ASSERT_TRUE(walk.Next(item) && item.AsString() == "a");
  c->Add("c");  // reached, as it stands after the walk's position
  ASSERT_TRUE(walk.Next(item));
  EXPECT_EQ(item.AsString(), "b");
  EXPECT_TRUE(walk.Skip(1));
  EXPECT_FALSE(walk.Next(item));
  walk.Reset();
  EXPECT_TRUE(walk.Skip(-1));  // a negative count moves nothing
  EXPECT_TRUE(walk.Next(item) && item.AsString() == "a");
  EXPECT_FALSE(walk.Skip(5));  // the walk stops at the end
  EXPECT_FALSE(walk.Next(item));
}

}  // namespace
}  // namespace varnex
