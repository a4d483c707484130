#include "varnex/data_collection_provider.hpp"

#include <gtest/gtest.h>

#include "binding/fake_data_collection.hpp"
#include "support/provider_cells.hpp"

namespace varnex {
namespace {

using testing::FakeDataCollection;
using testing::People;
using testing::Row;

const std::vector<Long> kNoTypes{};

std::vector<std::string> Header(DataCollectionProvider& provider) {
  std::vector<std::string> names;
  for (Long column = 1; column <= provider.getColumnCount(); ++column) {
    names.push_back(provider.getVariant(0, column, 0).AsString());
  }
  return names;
}

TEST(DataCollectionProviderTest, ColumnsComeFromTheFieldListOrTheCollectionsNames) {
  DataCollectionProvider provider;
  provider.LoadData(People(), kNoTypes, "name, code,,Active");
  // Split at every comma, blanks and empty pieces kept, upper-cased.
  EXPECT_EQ((std::vector<std::string>{"NAME", " CODE", "", "ACTIVE"}), Header(provider));
  EXPECT_EQ(provider.getVariant(1, 1, 0), Variant("Ann"));
  EXPECT_EQ(provider.getVariant(2, 4, 0), Variant("no"));
  // " CODE" and "" are no keys of the items: those cells read as Empty.
  EXPECT_TRUE(provider.getVariant(1, 2, 0).IsEmpty());
  EXPECT_TRUE(provider.getVariant(1, 3, 0).IsEmpty());

  provider.LoadData(People(), kNoTypes);
  EXPECT_EQ((std::vector<std::string>{"NAME", "CODE", "ACTIVE"}), Header(provider));
  EXPECT_EQ(provider.getVariant(3, 2, 0), Variant("C3"));

  provider.LoadData(std::make_shared<FakeDataCollection>(std::vector<std::string>{}, std::vector<Row>{{}}), kNoTypes);
  EXPECT_EQ(provider.getColumnCount(), 0);
  EXPECT_EQ(provider.getRowCount(), 1);
}

TEST(DataCollectionProviderTest, BooleanColumnsReadYesOneAndTrueAsTrue) {
  const std::vector<std::string> values{"yes", "YES", "1", "True", "tRuE", "no", "0", "Y", "", "-1", " yes"};
  std::vector<Row> rows;
  for (const std::string& value : values) rows.push_back({{"Flag", value}, {"Text", value}});
  const auto data = std::make_shared<FakeDataCollection>(std::vector<std::string>{"Flag", "Text"}, rows);
  DataCollectionProvider provider;
  // The type list is positional: its first element is column 1; column 2 has no type at all.
  provider.LoadData(data, std::vector<Long>{vbBoolean});
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Long row = static_cast<Long>(i + 1);
    EXPECT_EQ(provider.getVariant(row, 1, 0), Variant::FromBoolean(i < 5 ? vbTrue : vbFalse)) << values[i];
    EXPECT_EQ(provider.getVariant(row, 2, 0), Variant(values[i]));
  }
  EXPECT_EQ(provider.getVariant(0, 1, 0), Variant("FLAG"));

  provider.LoadData(data, std::vector<Long>{vbString, vbBoolean});
  EXPECT_EQ(provider.getVariant(1, 1, 0), Variant("yes"));
  EXPECT_EQ(provider.getVariant(1, 2, 0), Variant::FromBoolean(vbTrue));
}

TEST(DataCollectionProviderTest, CellsOutsideTheTableAreBlankOrEmptyNeverErrors) {
  DataCollectionProvider provider;
  EXPECT_EQ(provider.getRowCount(), 0);
  EXPECT_EQ(provider.getColumnCount(), 0);
  EXPECT_TRUE(provider.getVariant(1, 1, 0).IsEmpty());

  provider.LoadData(People(), kNoTypes);
  EXPECT_EQ(provider.getEstimatedRows(), 3);
  // A row beyond the last is an empty string, whatever the column.
  EXPECT_EQ(provider.getVariant(4, 1, 0), Variant(""));
  EXPECT_EQ(provider.getVariant(4, 99, 0), Variant(""));
  for (const auto& [row, column] : {std::pair{0, 4}, {1, 0}, {1, 4}, {-1, 1}}) {
    EXPECT_TRUE(provider.getVariant(row, column, 0).IsEmpty()) << row << "," << column;
  }
  // The table is read-only.
  provider.setVariant(1, 1, 0, Variant("Zed"));
  EXPECT_EQ(provider.deleteRows(1, 2) + provider.insertRows(1, 2) + provider.getRWStatus(1, 1), 0);
  EXPECT_EQ(provider.getVariant(1, 1, 0), Variant("Ann"));
  EXPECT_EQ(provider.getRowCount(), 3);
}

TEST(DataCollectionProviderTest, LoadFailuresRaiseTheClassErrorOnly) {
  DataCollectionProvider provider;
  const auto expect_load_error = [](const std::function<void()>& load) {
    EXPECT_AUTOMATION_ERROR_FROM(load(), errClass, "DataCollectionProvider", "Error Loading Data into Provider.");
  };
  expect_load_error([&] { provider.LoadData(People(), std::nullopt); });
  // Work done before the failure stays.
  EXPECT_EQ(provider.getColumnCount(), 3);
  EXPECT_EQ(provider.getVariant(1, 1, 0), Variant("Ann"));

  expect_load_error([&] { provider.LoadData(nullptr, kNoTypes); });
  struct BrokenNames : FakeDataCollection {
    BrokenNames() : FakeDataCollection({"A"}, {}) {}
    Long CountPropertyNames() override { return 2; }  // one more than PropertyNames knows
  };
  expect_load_error([&] { provider.LoadData(std::make_shared<BrokenNames>(), kNoTypes); });
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

  // Nothing the provider does notifies anyone.
  provider.addOLEDBSimpleProviderListener(first);
  provider.LoadData(People(), kNoTypes);
  provider.setVariant(1, 1, 0, Variant("x"));
  provider.deleteRows(1, 1);
  provider.insertRows(1, 1);
}

TEST(DataCollectionProviderTest, ReadsAsATableOfTheHeaderAndEveryRow) {
  DataCollectionProvider provider;
  provider.LoadData(People(), std::vector<Long>{vbString, vbString, vbBoolean}, "Name,Active,Active");
  using Rows = std::vector<std::vector<std::string>>;
  EXPECT_EQ(testing::ProviderCells(provider), (Rows{{"NAME", "ACTIVE", "ACTIVE"},
                                                    {"Ann", "yes", "True"},
                                                    {"Bob", "no", "False"},
                                                    {"Cy", "TRUE", "True"}}));
}

}  // namespace
}  // namespace varnex
