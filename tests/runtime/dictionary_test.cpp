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
  EXPECT_EQ(d.Keys(), (std::vector<std::string>{"b", "a", "B", "missing", "new"}));
  EXPECT_EQ(Texts(d.Items()), (std::vector<std::string>{"2", "one", "3", "", "n"}));

  d.Remove("b");
  EXPECT_EQ(d.Item("new").AsString(), "n") << "entries behind a removed one are still found";
  EXPECT_EQ(d.Keys(), (std::vector<std::string>{"a", "B", "missing", "new"}));
  EXPECT_AUTOMATION_ERROR(d.Remove("b"), errElementNotFound, "Element not found");
  d.RemoveAll();
  EXPECT_FALSE(d.Exists("a"));
}

TEST(Dictionary, TextCompareIgnoresCaseButKeepsTheKeyAsAdded) {
  Dictionary d(TextCompare);
  d.Add("Café", Variant("x"));
  EXPECT_AUTOMATION_ERROR(d.Add("CAFÉ", Variant()), errDuplicateKey, kDuplicate);
  EXPECT_EQ(d.Item("cafÉ").AsString(), "x");
  EXPECT_EQ(d.Keys(), (std::vector<std::string>{"Café"}));
  EXPECT_AUTOMATION_ERROR(d.CompareMode(BinaryCompare), errInvalidProcedureCall, "Invalid procedure call or argument");
  d.RemoveAll();
  d.CompareMode(BinaryCompare);
  d.Add("a", Variant());
  EXPECT_FALSE(d.Exists("A"));
}

}  // namespace
}  // namespace varnex
