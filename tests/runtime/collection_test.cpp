#include "varnex/collection.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "varnex/automation_error.hpp"
#include "varnex/enumerator.hpp"

namespace varnex {
namespace {

Long ErrorOf(auto&& call) {
  try {
    call();
  } catch (const AutomationError& error) {
    return error.number();
  }
  return 0;
}

std::vector<std::string> Texts(const Collection& collection) {
  std::vector<std::string> texts;
  for (const Variant& item : collection) texts.push_back(item.AsString());
  return texts;
}

TEST(CollectionTest, PositionsAreOneBased) {
  Collection c;
  EXPECT_EQ(c.Count(), 0);
  EXPECT_EQ(ErrorOf([&] { c.Item(1); }), errSubscriptOutOfRange);
  c.Add("a");
  c.Add("b");
  c.Add(7);
  EXPECT_EQ(c.Count(), 3);
  EXPECT_EQ(c.Item(1).AsString(), "a");
  EXPECT_EQ(c.Item(3).AsLong(), 7);
  EXPECT_EQ(ErrorOf([&] { c.Item(0); }), errSubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { c.Item(4); }), errSubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { c.Item(-1); }), errSubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { c.Item(Variant()); }), errSubscriptOutOfRange);
  // True is position -1.
  EXPECT_EQ(ErrorOf([&] { c.Item(Variant::FromBoolean(vbTrue)); }), errSubscriptOutOfRange);
  EXPECT_EQ((std::vector<std::string>{"a", "b", "7"}), Texts(c));
}

TEST(CollectionTest, KeysCompareWithoutRegardToCase) {
  Collection c;
  c.Add("one", "First");
  c.Add("two");
  c.Add("three", "Third");
  EXPECT_EQ(c.Item("FIRST").AsString(), "one");
  EXPECT_EQ(c.Item("third").AsString(), "three");
  EXPECT_EQ(c.Item(2).AsString(), "two");
  // Text is always a key, even when it spells a number.
  EXPECT_EQ(ErrorOf([&] { c.Item("2"); }), errInvalidProcedureCall);
  EXPECT_EQ(ErrorOf([&] { c.Item(""); }), errInvalidProcedureCall);
  EXPECT_EQ(ErrorOf([&] { c.Add("again", "fIRST"); }), errDuplicateKey);
  EXPECT_EQ(c.Count(), 3);
  // Many items without a key are fine.
  c.Add("four", "");
  EXPECT_EQ(c.Count(), 4);
}

TEST(CollectionTest, RemoveByPositionAndKeyKeepsKeysPointingAtTheirItems) {
  Collection c;
  for (const char* key : {"a", "b", "c", "d", "e"}) c.Add(std::string(key) + "!", key);
  c.Remove(3);
  EXPECT_EQ((std::vector<std::string>{"a!", "b!", "d!", "e!"}), Texts(c));
  EXPECT_EQ(c.Item("d").AsString(), "d!");
  EXPECT_EQ(ErrorOf([&] { c.Item("c"); }), errInvalidProcedureCall);
  c.Remove("A");
  EXPECT_EQ(c.Item(1).AsString(), "b!");
  EXPECT_EQ(c.Item("E").AsString(), "e!");
  // A removed key can be used again.
  c.Add("new c", "c");
  EXPECT_EQ(c.Item(4).AsString(), "new c");
  EXPECT_EQ(ErrorOf([&] { c.Remove(5); }), errSubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { c.Remove("zz"); }), errInvalidProcedureCall);
  EXPECT_EQ(c.Count(), 4);
}

TEST(CollectionTest, DrainingFromTheFrontKeepsOrderAndKeys) {
  Collection c;
  const int n = 1000;
  for (int i = 1; i <= n; ++i) c.Add(i, "k" + std::to_string(i));
  for (int i = 1; i <= 700; ++i) {
    ASSERT_EQ(c.Item(1).AsLong(), i);
    c.Remove(1);
  }
  EXPECT_EQ(c.Count(), n - 700);
  EXPECT_EQ(c.Item(1).AsLong(), 701);
  EXPECT_EQ(c.Item("K1000").AsLong(), 1000);
  EXPECT_EQ(ErrorOf([&] { c.Item("k700"); }), errInvalidProcedureCall);
  c.Add(-1, "k1");
  EXPECT_EQ(c.Item(c.Count()).AsLong(), -1);
  EXPECT_EQ(c.Item("k1").AsLong(), -1);
  while (c.Count() > 0) c.Remove(1);
  EXPECT_EQ(c.begin(), c.end());
  c.Add("again", "k5");
  EXPECT_EQ(c.Item("k5").AsString(), "again");
}

TEST(CollectionTest, HoldsObjects) {
  auto inner = std::make_shared<Collection>();
  inner->Add("x", "X");
  Collection outer;
  outer.Add(inner);
  EXPECT_EQ(outer.Item(1).AsObjectOf<Collection>(), inner);
}

TEST(CollectionTest, EnumeratorWalksByPosition) {
  auto c = std::make_shared<Collection>();
  c->Add("a");
  c->Add("b");
  Enumerator walk(c);
  Variant item;
  ASSERT_TRUE(walk.Next(item));
  EXPECT_EQ(item.AsString(), "a");
  // A member added during the walk is reached.
  c->Add("c");
  ASSERT_TRUE(walk.Next(item));
  EXPECT_EQ(item.AsString(), "b");
  EXPECT_TRUE(walk.Skip(1));
  EXPECT_FALSE(walk.Next(item));
  EXPECT_EQ(item.AsString(), "b");
  walk.Reset();
  EXPECT_FALSE(walk.Skip(5));
  EXPECT_FALSE(walk.Next(item));
  walk.Reset();
  ASSERT_TRUE(walk.Next(item));
  EXPECT_EQ(item.AsString(), "a");

  Enumerator nothing(nullptr);
  EXPECT_FALSE(nothing.Next(item));
}

}  // namespace
}  // namespace varnex
