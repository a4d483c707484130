// The item collection, the provider over it, and the source that loads a provider per request.
#include <gtest/gtest.h>

#include <vector>

#include "binding/documents.hpp"
#include "varnex/data_collection.hpp"
#include "varnex/data_collection_provider.hpp"
#include "varnex/data_collection_source.hpp"

namespace varnex {
namespace {

using testing::Document;
using testing::Loaded;
using testing::People;
using testing::ProviderCells;
using testing::Row;
using testing::Rows;
using testing::Wrapped;

using Table = std::vector<std::vector<std::string>>;
const std::vector<Long> kNoTypes{};

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
    EXPECT_EQ(std::pair(data.Count(), data.CountPropertyNames()), std::pair(0, 0)) << text;
  }
  EXPECT_EQ(data.begin(), data.end());
  EXPECT_AUTOMATION_ERROR(data.Item(1), errSubscriptOutOfRange, "Item: Subscript out of range");
  EXPECT_AUTOMATION_ERROR(data.PropertyNames(1), errSubscriptOutOfRange, "PropertyNames: Subscript out of range");
}

TEST(DataCollectionProviderTest, ColumnsComeFromTheFieldListOrTheCollectionsNames) {
  DataCollectionProvider provider;
  // Split at every comma, blanks and empty pieces kept (the last one too), upper-cased; " CODE"
  // and "" are no keys of the items: those cells read as Empty. The type list is positional.
  provider.LoadData(People(), std::vector<Long>{vbString, vbString, vbString, vbBoolean}, "name, code,,Active,");
  EXPECT_EQ(ProviderCells(provider), (Table{{"NAME", " CODE", "", "ACTIVE", ""},
                                            {"Ann", "", "", "True", ""},
                                            {"Bob", "", "", "False", ""},
                                            {"Cy", "", "", "True", ""}}));
  EXPECT_TRUE(provider.getVariant(1, 2, 0).IsEmpty());

  provider.LoadData(Loaded(Rows("ROWS", Row({}))), kNoTypes);
  EXPECT_EQ(ProviderCells(provider), (Table{{}, {}})) << "no columns, one row";
}

TEST(DataCollectionProviderTest, BooleanColumnsReadYesOneAndTrueAsTrue) {
  const std::vector<std::string> values{"yes", "YES", "1", "True", "tRuE", "no", "0", "Y", "", "-1", " yes"};
  std::string rows;
  for (const std::string& value : values) rows += Row({{"Flag", value}, {"Count", value}, {"Text", value}});
  DataCollectionProvider provider;
  // Column 2 has another type, column 3 none: both read as text.
  provider.LoadData(Loaded(Rows("ROWS", rows)), std::vector<Long>{vbBoolean, vbLong});
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Long row = static_cast<Long>(i + 1);
    EXPECT_EQ(provider.getVariant(row, 1, 0), Variant::FromBoolean(i < 5 ? vbTrue : vbFalse)) << values[i];
    EXPECT_EQ(provider.getVariant(row, 2, 0), Variant(values[i]));
    EXPECT_EQ(provider.getVariant(row, 3, 0), Variant(values[i]));
  }
}

TEST(DataCollectionProviderTest, CellsOutsideTheTableAreBlankOrEmptyNeverErrors) {
  DataCollectionProvider provider;
  EXPECT_EQ(provider.getRowCount() + provider.getColumnCount(), 0);
  EXPECT_TRUE(provider.getVariant(1, 1, 0).IsEmpty());

  provider.LoadData(People(), kNoTypes);
  // A row beyond the last is an empty string, whatever the column; other cells outside are Empty.
  EXPECT_EQ((std::vector<Variant>{provider.getEstimatedRows(), provider.getVariant(4, 1, 0), provider.getVariant(4, 99, 0),
                                  provider.getVariant(0, 4, 0), provider.getVariant(1, 0, 0), provider.getVariant(1, 4, 0),
                                  provider.getVariant(-1, 1, 0)}),
            (std::vector<Variant>{3, "", "", {}, {}, {}, {}}));
  provider.setVariant(1, 1, 0, Variant("Zed"));  // the table is read-only
  EXPECT_EQ(provider.getVariant(1, 1, 0), Variant("Ann"));
}

// Any failure is the class error; the work done before it stays.
TEST(DataCollectionProviderTest, LoadFailuresRaiseTheClassErrorOnly) {
  struct BrokenNames : DataCollection {
    Long CountPropertyNames() override { return 1; }  // one more than PropertyNames knows
  };
  DataCollectionProvider provider;
  for (const auto& collection : std::vector<std::shared_ptr<IDataCollection>>{nullptr, std::make_shared<BrokenNames>()}) {
    EXPECT_AUTOMATION_ERROR_FROM(provider.LoadData(collection, kNoTypes), errClass, "DataCollectionProvider",
                                 "Error Loading Data into Provider.");
  }
  EXPECT_AUTOMATION_ERROR_FROM(provider.LoadData(People(), std::nullopt), errClass, "DataCollectionProvider",
                               "Error Loading Data into Provider.");
  EXPECT_EQ(provider.getVariant(1, 1, 0), Variant("Ann"));  // the columns were read before the types failed
}

// A listener that fails the test when the provider calls it.
struct SilentListener : OLEDBSimpleProviderListener {
  void aboutToChangeCell(Long, Long) override { ADD_FAILURE(); }
  void cellChanged(Long, Long) override { ADD_FAILURE(); }
  void aboutToDeleteRows(Long, Long) override { ADD_FAILURE(); }
  void deletedRows(Long, Long) override { ADD_FAILURE(); }
  void aboutToInsertRows(Long, Long) override { ADD_FAILURE(); }
  void insertedRows(Long, Long) override { ADD_FAILURE(); }
  void rowsAvailable(Long, Long) override { ADD_FAILURE(); }
  void transferComplete(Long) override { ADD_FAILURE(); }
};

TEST(DataCollectionProviderTest, RemovingAListenerWalksPastTheEndAfterARemoval) {
  const auto first = std::make_shared<SilentListener>();
  const auto second = std::make_shared<SilentListener>();
  DataCollectionProvider provider;
  provider.addOLEDBSimpleProviderListener(first);
  provider.removeOLEDBSimpleProviderListener(first);
  provider.removeOLEDBSimpleProviderListener(first);  // no longer there: nothing happens

  provider.addOLEDBSimpleProviderListener(first);
  provider.addOLEDBSimpleProviderListener(second);
  EXPECT_AUTOMATION_ERROR(provider.removeOLEDBSimpleProviderListener(first), errSubscriptOutOfRange,
                          "Subscript out of range");
  provider.removeOLEDBSimpleProviderListener(second);  // the first went all the same

  // The last of two goes cleanly; a null listener is never added.
  provider.addOLEDBSimpleProviderListener(first);
  provider.addOLEDBSimpleProviderListener(nullptr);
  provider.addOLEDBSimpleProviderListener(second);
  provider.removeOLEDBSimpleProviderListener(second);
  provider.removeOLEDBSimpleProviderListener(first);
}

TEST(DataCollectionSourceTest, EachRequestLoadsAFreshProviderWithTheSettingsOfTheMoment) {
  DataCollectionSource source;
  EXPECT_AUTOMATION_ERROR_FROM(source.GetDataMember(), errClass, "DataCollectionSource", "DataSource contains no data.");
  source.Data(People());
  // Types never set fail the load; an empty list is a list that was set.
  EXPECT_AUTOMATION_ERROR_FROM(source.GetDataMember(), errClass, "DataCollectionProvider",
                               "Error Loading Data into Provider.");
  source.DataTypes({});
  EXPECT_EQ(source.GetDataMember()->getRowCount(), 3);
  source.DataTypes({vbString, vbBoolean});
  const auto by_names = source.GetDataMember();
  EXPECT_EQ(ProviderCells(*by_names)[1], (std::vector<std::string>{"Ann", "False", "yes"}));  // "A1" is no Boolean word

  std::vector<Long> types{vbBoolean};
  source.Fields("Active,Name");
  source.DataTypes(types);
  types[0] = vbString;  // the source holds its own copy
  const auto by_fields = source.GetDataMember("any name");
  EXPECT_NE(by_fields, by_names);
  EXPECT_EQ(ProviderCells(*by_fields), (Table{{"ACTIVE", "NAME"}, {"True", "Ann"}, {"False", "Bob"}, {"True", "Cy"}}));
  EXPECT_EQ(by_names->getColumnCount(), 3);
}

}  // namespace
}  // namespace varnex
