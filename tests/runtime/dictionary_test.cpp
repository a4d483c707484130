// The ordered dictionary that prototype reads hand out.
#include <gtest/gtest.h>

#include "support/errors.hpp"
#include "varnex/dictionary.hpp"

namespace varnex {
namespace {

const std::string kDuplicate = "This key is already associated with an element of this collection";

std::vector<std::string> Texts(const std::vector<Variant>& items) {
  std::vector<std::string> texts;
  for (const Variant& item : items) texts.push_back(item.AsString());
  return texts;
}

TEST(Dictionary, KeepsInsertionOrderThroughAddsReadsAndRemovals) {
  Dictionary d;
  d.Add("b", Variant("2"));
  d.Add("a", Variant("1"));
  d.Add("B", Variant("3"));  // binary compare: another key
  EXPECT_AUTOMATION_ERROR(d.Add("a", Variant()), errDuplicateKey, kDuplicate);
  EXPECT_TRUE(d.Item("missing").IsEmpty());
  EXPECT_TRUE(d.Exists("missing")) << "reading a missing key adds it";
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
  EXPECT_EQ(d.Count(), 100);
  EXPECT_EQ(d.Keys(), kept);
  EXPECT_EQ(d.Item("K150").AsLong(), 150);
  EXPECT_FALSE(d.Exists("k151"));
  EXPECT_AUTOMATION_ERROR(d.CompareMode(BinaryCompare), errInvalidProcedureCall, "Invalid procedure call or argument");

  // A removed key comes back at the end; a read of a missing one adds it there too.
  d.Add("k1", Variant("again"));
  EXPECT_TRUE(d.Item("k2").IsEmpty());
  EXPECT_EQ(d.Keys().back(), "k2");
  EXPECT_EQ(d.Items()[100].AsString(), "again");
  for (const std::string& key : d.Keys()) d.Remove(key);
  EXPECT_TRUE(d.Keys().empty());
  d.CompareMode(BinaryCompare);  // allowed once the dictionary is empty again
  d.Add("A", Variant("x"));
  EXPECT_FALSE(d.Exists("a"));
}

}  // namespace
}  // namespace varnex
