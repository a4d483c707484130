// The ordered collection and its enumerator, and the ordered dictionary that prototype reads
// hand out.
#include <gtest/gtest.h>

#include <vector>

#include "support/errors.hpp"
#include "varnex/collection.hpp"
#include "varnex/dictionary.hpp"
#include "varnex/enumerator.hpp"

namespace varnex {
namespace {

const std::string kDuplicate = "This key is already associated with an element of this collection";

// The items of a collection or a dictionary as text.
template <typename Items>
std::vector<std::string> Texts(const Items& items) {
  std::vector<std::string> texts;
  for (const Variant& item : items) texts.push_back(item.AsString());
  return texts;
}

TEST(CollectionTest, PositionsAreOneBasedAndKeysIgnoreCase) {
  Collection c;
  EXPECT_AUTOMATION_ERROR(c.Item(1), errSubscriptOutOfRange, "Subscript out of range");
  c.Add("one", "First");
  c.Add("two");
  c.Add(3, "Third");
  EXPECT_EQ((std::vector<Variant>{c.Count(), c.Item(2), c.Item("FIRST"), c.Item("third")}),
            (std::vector<Variant>{3, "two", "one", 3}));
  for (const Variant& position : {Variant(0), Variant(4), Variant(), Variant::FromBoolean(vbTrue)}) {
    EXPECT_AUTOMATION_ERROR(c.Item(position), errSubscriptOutOfRange, "Subscript out of range");
  }
  // Text is always a key, even when it spells a number.
  EXPECT_AUTOMATION_ERROR(c.Item("2"), errInvalidProcedureCall, "Invalid procedure call or argument");
  EXPECT_AUTOMATION_ERROR(c.Add("again", "fIRST"), errDuplicateKey, kDuplicate);
  c.Add("four", "");
  EXPECT_EQ((std::vector<std::string>{"one", "two", "3", "four"}), Texts(c));
}

TEST(CollectionTest, RemovalKeepsKeysPointingAtTheirItems) {
  Collection c;
  for (const char* key : {"a", "b", "c", "d", "e"}) c.Add(std::string(key) + "!", key);
  c.Remove(3);
  c.Remove("A");
  EXPECT_EQ((std::vector<std::string>{"b!", "d!", "e!"}), Texts(c));
  EXPECT_EQ(c.Item("D").AsString() + c.Item("E").AsString(), "d!e!");
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
  EXPECT_EQ((std::vector<Variant>{many.Count(), many.Item("K1000")}), (std::vector<Variant>{300, 1000}));
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
  std::string seen;
  const auto next = [&] { Variant item; seen += walk.Next(item) ? item.AsString() : "-"; };
  const auto skip = [&](Long count) { seen += walk.Skip(count) ? "+" : "!"; };
  next();
  c->Add("c");  // reached, as it stands after the walk's position
  next(), skip(1), next();
  walk.Reset();
  skip(-1), next(), skip(5), next();  // a negative count moves nothing; the walk stops at the end
  EXPECT_EQ(seen, "ab+-+a!-");
}

TEST(Dictionary, KeepsInsertionOrderThroughAddsReadsAndRemovals) {
  Dictionary d;
  d.Add("b", Variant("2"));
  EXPECT_AUTOMATION_ERROR(d.CompareMode(TextCompare), errInvalidProcedureCall, "Invalid procedure call or argument");
  d.Add("a", Variant("1"));
  d.Add("B", Variant("3"));  // binary compare: another key
  EXPECT_AUTOMATION_ERROR(d.Add("a", Variant()), errDuplicateKey, kDuplicate);
  EXPECT_TRUE(d.Item("missing").IsEmpty() && d.Exists("missing")) << "reading a missing key adds it";
  d.Item("a", Variant("one"));
  d.Item("new", Variant("n"));
  d.Remove("b");
  EXPECT_EQ(d.Item("new").AsString(), "n") << "entries behind a removed one are still found";
  EXPECT_EQ(d.Keys(), (std::vector<std::string>{"a", "B", "missing", "new"}));
  EXPECT_EQ(Texts(d.Items()), (std::vector<std::string>{"one", "3", "", "n"}));
  EXPECT_AUTOMATION_ERROR(d.Remove("b"), errElementNotFound, "Element not found");
  d.RemoveAll();
  EXPECT_FALSE(d.Exists("a"));
}

// Removed entries are marked and dropped in bulk later, which never shows in the order, the
// count or the lookups.
TEST(Dictionary, TextCompareAndManyRemovals) {
  Dictionary d(TextCompare);
  for (int i = 0; i < 300; ++i) d.Add("k" + std::to_string(i), Variant(Long{i}));
  EXPECT_AUTOMATION_ERROR(d.Add("K0", Variant()), errDuplicateKey, kDuplicate);
  std::vector<std::string> kept;
  for (int i = 0; i < 300; ++i) {
    if (i % 3 == 0) kept.push_back("k" + std::to_string(i));
    else d.Remove("K" + std::to_string(i));
  }
  EXPECT_EQ(d.Keys(), kept);
  EXPECT_TRUE(d.Count() == 100 && d.Item("K150").AsLong() == 150 && !d.Exists("k151"));
  EXPECT_AUTOMATION_ERROR(d.CompareMode(BinaryCompare), errInvalidProcedureCall, "Invalid procedure call or argument");

  // A removed key comes back at the end; a read of a missing one adds it there too.
  d.Add("k1", Variant("again"));
  EXPECT_TRUE(d.Item("k2").IsEmpty());
  EXPECT_EQ(d.Keys().back() + "|" + d.Items()[100].AsString(), "k2|again");
  for (const std::string& key : d.Keys()) d.Remove(key);
  EXPECT_TRUE(d.Keys().empty());
  d.CompareMode(BinaryCompare);  // allowed once the dictionary is empty again
  d.Add("A", Variant("x"));
  EXPECT_FALSE(d.Exists("a"));
}

}  // namespace
}  // namespace varnex
