// The provider over an item collection, and the source that loads one per request.
#include "varnex/data_collection_provider.hpp"

#include <gtest/gtest.h>

#include "binding/documents.hpp"
#include "support/provider_cells.hpp"
#include "varnex/data_collection_source.hpp"

namespace varnex {
namespace {

using testing::Loaded;
using testing::People;
using testing::Row;
using testing::ProviderCells;
using Cells = std::vector<std::vector<std::string>>;

const std::vector<Long> kNoTypes{};

TEST(DataCollectionProviderTest, ColumnsComeFromTheFieldListOrTheCollectionsNames) {
  DataCollectionProvider provider;
  // Split at every comma, blanks and empty pieces kept, upper-cased; " CODE" and "" are no keys
  // of the items: those cells read as Empty. The type list is positional.
  provider.LoadData(People(), std::vector<Long>{vbString, vbString, vbString, vbBoolean}, "name, code,,Active");
  EXPECT_EQ(ProviderCells(provider), (Cells{{"NAME", " CODE", "", "ACTIVE"},
                                            {"Ann", "", "", "True"},
                                            {"Bob", "", "", "False"},
                                            {"Cy", "", "", "True"}}));
  EXPECT_TRUE(provider.getVariant(1, 2, 0).IsEmpty());

  provider.LoadData(Loaded(testing::Rows("ROWS", Row({}))), kNoTypes);
  EXPECT_EQ(ProviderCells(provider), (Cells{{}, {}})) << "no columns, one row";
}

TEST(DataCollectionProviderTest, BooleanColumnsReadYesOneAndTrueAsTrue) {
  const std::vector<std::string> values{"yes", "YES", "1", "True", "tRuE", "no", "0", "Y", "", "-1", " yes"};
  std::string rows;
  for (const std::string& value : values) rows += Row({{"Flag", value}, {"Count", value}, {"Text", value}});
  DataCollectionProvider provider;
  // Column 2 has another type, column 3 none: both read as text.
  provider.LoadData(Loaded(testing::Rows("ROWS", rows)), std::vector<Long>{vbBoolean, vbLong});
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
  EXPECT_EQ(provider.getEstimatedRows(), 3);
  // A row beyond the last is an empty string, whatever the column.
  EXPECT_EQ(provider.getVariant(4, 1, 0), Variant(""));
  EXPECT_EQ(provider.getVariant(4, 99, 0), Variant(""));
  for (const auto& [row, column] : {std::pair{0, 4}, {1, 0}, {1, 4}, {-1, 1}}) {
    EXPECT_TRUE(provider.getVariant(row, column, 0).IsEmpty()) << row << "," << column;
  }
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
  EXPECT_EQ(ProviderCells(*by_fields), (Cells{{"ACTIVE", "NAME"}, {"True", "Ann"}, {"False", "Bob"}, {"True", "Cy"}}));
  EXPECT_EQ(by_names->getColumnCount(), 3);
}

}  // namespace
}  // namespace varnex
