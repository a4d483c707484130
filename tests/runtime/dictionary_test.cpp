// The ordered dictionary that prototype reads hand out.
#include <gtest/gtest.h>

#include "support/errors.hpp"
#include "varnex/dictionary.hpp"

namespace varnex {
namespace {

std::vector<std::string> Texts(const std::vector<Variant>& items) {
  std::vector<std::string> texts;
  for (const Variant& item : items) texts.push_back(item.AsString());
  return texts;
}

TEST(Dictionary, KeepsInsertionOrderThroughAddsReadsAndRemovals) {
  Dictionary d;
  d.Add("b", Variant(std::string("2")));
  d.Add("a", Variant(std::string("1")));
  d.Add("B", Variant(std::string("3")));  // binary compare: another key
  EXPECT_AUTOMATION_ERROR(d.Add("a", Variant()), errDuplicateKey,
                          "This key is already associated with an element of this collection");
  EXPECT_TRUE(d.Item("missing").IsEmpty());
  EXPECT_TRUE(d.Exists("missing")) << "reading a missing key adds it";
  d.Item("a", Variant(std::string("one")));
  d.Item("new", Variant(std::string("n")));
  EXPECT_EQ(d.Keys(), (std::vector<std::string>{"b", "a", "B", "missing", "new"}));
  EXPECT_EQ(Texts(d.Items()), (std::vector<std::string>{"2", "one", "3", "", "n"}));

  d.Remove("b");
  EXPECT_EQ(d.Item("B").AsString(), "3") << "entries behind a removed one are still found";
  EXPECT_EQ(d.Item("new").AsString(), "n");
  EXPECT_EQ(d.Count(), 4);
  EXPECT_AUTOMATION_ERROR(d.Remove("b"), 32811, "Element not found");
  d.RemoveAll();
  EXPECT_EQ(d.Count(), 0);
  EXPECT_FALSE(d.Exists("a"));
  d.Add("a", Variant(std::string("again")));
  EXPECT_EQ(d.Keys(), (std::vector<std::string>{"a"}));
}

TEST(Dictionary, TextCompareIgnoresCaseButKeepsTheKeyAsAdded) {
  Dictionary d(TextCompare);
  d.Add("Colour", Variant(std::string("x")));
  EXPECT_TRUE(d.Exists("COLOUR"));
  EXPECT_AUTOMATION_ERROR(d.Add("colour", Variant()), errDuplicateKey,
                          "This key is already associated with an element of this collection");
  EXPECT_EQ(d.Item("cOLOUR").AsString(), "x");
  EXPECT_EQ(d.Keys(), (std::vector<std::string>{"Colour"}));
  EXPECT_AUTOMATION_ERROR(d.CompareMode(BinaryCompare), errInvalidProcedureCall,
                          "Invalid procedure call or argument");
  d.RemoveAll();
  d.CompareMode(BinaryCompare);
  d.Add("a", Variant());
  EXPECT_FALSE(d.Exists("A"));
}

}  // namespace
}  // namespace varnex
