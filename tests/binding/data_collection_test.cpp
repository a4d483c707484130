#include "varnex/data_collection.hpp"

#include <gtest/gtest.h>

#include <vector>

#include "binding/documents.hpp"

namespace varnex {
namespace {

using testing::Document;
using testing::Row;
using testing::Rows;
using testing::Wrapped;

using Table = std::vector<std::vector<std::string>>;

// The column names, then the values of each item as the collection walks them.
Table Values(DataCollection& data) {
  Table rows(1);
  for (Long i = 1; i <= data.CountPropertyNames(); ++i) rows[0].push_back(data.PropertyNames(i));
  for (const std::shared_ptr<Collection> item : data) {
    std::vector<std::string>& row = rows.emplace_back();
    for (const Variant& value : *item) row.push_back(value.AsString());
  }
  return rows;
}

const std::string kPeople = Rows("PEOPLE", Row({{"NAME", "Ann"}, {"PAID", "yes"}}) + Row({{"NAME", "Bob"}, {"PAID", "no"}}));

// Only the first item names the columns; deleted items are included with their current values,
// after the live ones.
TEST(DataCollectionTest, TheFirstCollectionUnderTheRootGivesTheItems) {
  const std::string rows = Row({{"A", "1"}, {"B", "2"}}) + Row({{"B", "3"}, {"C", "4"}}, " STATUS=\"DELETED\"") +
                           Row({}) + "<COMPONENT><ROW STATUS=\"DELETED\"><PROPERTIES>"
                           "<A STATUS=\"MODIFIED\" ORIGINAL=\"before\">after</A></PROPERTIES></ROW></COMPONENT>";
  const auto data = std::make_shared<DataCollection>();
  data->Data(Document(Wrapped("COMPONENT", "SITE", {{"NAME", "North"}}) + Rows("ROWS", rows) + kPeople));
  EXPECT_EQ(Values(*data), (Table{{"A", "B"}, {"1", "2"}, {}, {"3", "4"}, {"after"}}));
  EXPECT_EQ(data->Item(3)->Item("c").AsString(), "4");
  EXPECT_AUTOMATION_ERROR(data->Item(3)->Item("A"), errInvalidProcedureCall, "Invalid procedure call or argument");
  // Items have no keys: text, even a number's, is an unknown key.
  EXPECT_AUTOMATION_ERROR(data->Item("2"), errInvalidProcedureCall, "Item: Invalid procedure call or argument");

  Variant first;
  EXPECT_TRUE(data->NewEnum()->Next(first) && first.AsObjectOf<Collection>() == data->Item(1));
}

// Without a collection directly under the root there are no items.
TEST(DataCollectionTest, EachLoadReplacesTheLastAndAFailedOneLeavesNothing) {
  DataCollection data;
  data.Data(Document(kPeople));
  const auto kept = data.Item(1);
  data.Data(Document(Rows("ROWS", Row({{"Z", "9"}}))));
  EXPECT_EQ(Values(data), (Table{{"Z"}, {"9"}}));
  EXPECT_EQ(kept->Item("NAME").AsString(), "Ann");  // lives on with its holder

  const std::string repeated_property = Document(Rows("ROWS", Row({{"A", "1"}}) + Row({{"A", "1"}, {"A", "2"}})));
  for (const std::string& text : {std::string("not a document"), std::string(), std::string("0"), repeated_property,
                                  Document(Wrapped("COMPONENT", "SITE", {{"NAME", "North"}}, "", kPeople))}) {
    data.Data(Document(kPeople));
    data.Data(text);  // raises nothing
    EXPECT_EQ(data.Count(), 0) << text;
    EXPECT_EQ(data.CountPropertyNames(), 0) << text;
  }
  EXPECT_EQ(data.begin(), data.end());
  EXPECT_AUTOMATION_ERROR(data.Item(1), errSubscriptOutOfRange, "Item: Subscript out of range");
  EXPECT_AUTOMATION_ERROR(data.PropertyNames(1), errSubscriptOutOfRange, "PropertyNames: Subscript out of range");
}

}  // namespace
}  // namespace varnex
