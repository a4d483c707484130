#include "varnex/data_collection_provider.hpp"

#include <gtest/gtest.h>

#include "binding/fake_data_collection.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;
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
  provider.LoadData(People(), kNoTypes, "name, code");
  // Split at every comma, blanks kept, upper-cased.
  EXPECT_EQ((std::vector<std::string>{"NAME", " CODE"}), Header(provider));
  EXPECT_EQ(provider.getVariant(1, 1, 0).AsString(), "Ann");
  // " CODE" is no key of the items: the cell reads as Empty.
  EXPECT_TRUE(provider.getVariant(1, 2, 0).IsEmpty());

  provider.LoadData(People(), kNoTypes, "code,,Active,");
  EXPECT_EQ((std::vector<std::string>{"CODE", "", "ACTIVE", ""}), Header(provider));
  EXPECT_EQ(provider.getVariant(2, 1, 0).AsString(), "B2");
  EXPECT_TRUE(provider.getVariant(2, 2, 0).IsEmpty());
  EXPECT_EQ(provider.getVariant(2, 3, 0).AsString(), "no");

  provider.LoadData(People(), kNoTypes);
  EXPECT_EQ((std::vector<std::string>{"NAME", "CODE", "ACTIVE"}), Header(provider));
  EXPECT_EQ(provider.getVariant(3, 2, 0).AsString(), "C3");
  EXPECT_EQ(provider.getVariant(3, 2, 0).VarType(), vbString);

  provider.LoadData(std::make_shared<FakeDataCollection>(std::vector<std::string>{}, std::vector<Row>{{}}), kNoTypes);
  EXPECT_EQ(provider.getColumnCount(), 0);
  EXPECT_EQ(provider.getRowCount(), 1);
}

TEST(DataCollectionProviderTest, BooleanColumnsReadYesOneAndTrueAsTrue) {
  std::vector<Row> rows;
  for (const char* value : {"yes", "YES", "1", "True", "tRuE", "no", "0", "Y", "", "-1", "T", " yes"}) {
    rows.push_back({{"Flag", value}, {"Text", value}});
  }
  DataCollectionProvider provider;
  // The type list is positional: its first element is column 1. Column 2 has no type at all.
  provider.LoadData(std::make_shared<FakeDataCollection>(std::vector<std::string>{"Flag", "Text"}, rows),
                    std::vector<Long>{vbBoolean});
  for (Long row = 1; row <= 12; ++row) {
    const Variant flag = provider.getVariant(row, 1, 0);
    EXPECT_EQ(flag.VarType(), vbBoolean) << row;
    EXPECT_EQ(flag.AsBoolean(), row <= 5 ? vbTrue : vbFalse) << rows[row - 1][0].second;
    EXPECT_EQ(provider.getVariant(row, 2, 0), Variant(rows[row - 1][1].second));
  }
  // The header row of a Boolean column is still its name.
  EXPECT_EQ(provider.getVariant(0, 1, 0), Variant("FLAG"));

  // Only code 11 makes a column Boolean.
  provider.LoadData(std::make_shared<FakeDataCollection>(std::vector<std::string>{"Flag", "Text"}, rows),
                    std::vector<Long>{vbString, vbBoolean});
  EXPECT_EQ(provider.getVariant(1, 1, 0), Variant("yes"));
  EXPECT_EQ(provider.getVariant(1, 2, 0), Variant::FromBoolean(vbTrue));
}

TEST(DataCollectionProviderTest, OutsideTheTableCellsAreBlankOrEmptyNeverErrors) {
  DataCollectionProvider provider;
  EXPECT_EQ(provider.getRowCount(), 0);
  EXPECT_EQ(provider.getColumnCount(), 0);
  EXPECT_EQ(provider.getEstimatedRows(), 0);
  EXPECT_TRUE(provider.getVariant(0, 1, 0).IsEmpty());
  EXPECT_TRUE(provider.getVariant(1, 1, 0).IsEmpty());

  provider.LoadData(People(), kNoTypes);
  EXPECT_EQ(provider.getRowCount(), 3);
  EXPECT_EQ(provider.getEstimatedRows(), 3);
  EXPECT_EQ(provider.getVariant(0, 2, 0), Variant("CODE"));
  // A row beyond the last is an empty string, whatever the column.
  EXPECT_EQ(provider.getVariant(4, 1, 0), Variant(""));
  EXPECT_EQ(provider.getVariant(4, 99, 0), Variant(""));
  // Columns beyond the list and rows before the first are Empty.
  EXPECT_TRUE(provider.getVariant(0, 4, 0).IsEmpty());
  EXPECT_TRUE(provider.getVariant(1, 0, 0).IsEmpty());
  EXPECT_TRUE(provider.getVariant(1, 4, 0).IsEmpty());
  EXPECT_TRUE(provider.getVariant(-1, 1, 0).IsEmpty());

  // Without a collection (but with fields) there are no rows.
  provider.LoadData(nullptr, kNoTypes, "A");
  EXPECT_EQ(provider.getRowCount(), 0);
  EXPECT_EQ(provider.getVariant(0, 1, 0), Variant("A"));
  EXPECT_TRUE(provider.getVariant(1, 1, 0).IsEmpty());
}

TEST(DataCollectionProviderTest, LoadFailuresRaiseTheClassErrorOnly) {
  const auto expect_load_error = [](const AutomationError& error) {
    EXPECT_EQ(error.number(), errClass);
    EXPECT_EQ(error.source(), "DataCollectionProvider");
    EXPECT_EQ(error.description(), "Error Loading Data into Provider.");
  };
  DataCollectionProvider provider;
  expect_load_error(ErrorOf([&] { provider.LoadData(People(), std::nullopt); }));
  // Work done before the failure stays: the collection and its columns are in place.
  EXPECT_EQ(provider.getRowCount(), 3);
  EXPECT_EQ(provider.getColumnCount(), 3);
  EXPECT_EQ(provider.getVariant(1, 1, 0), Variant("Ann"));

  expect_load_error(ErrorOf([&] { provider.LoadData(nullptr, kNoTypes); }));

  struct BrokenNames : FakeDataCollection {
    BrokenNames() : FakeDataCollection({"A"}, {}) {}
    Long CountPropertyNames() override { return 2; }  // more than PropertyNames answers
  };
  expect_load_error(ErrorOf([&] { provider.LoadData(std::make_shared<BrokenNames>(), kNoTypes); }));
}

TEST(DataCollectionProviderTest, TheTableIsReadOnly) {
  DataCollectionProvider provider;
  provider.LoadData(People(), kNoTypes);
  EXPECT_EQ(provider.getRWStatus(1, 1), 0);
  EXPECT_EQ(provider.getRWStatus(-1, 99), 0);
  provider.setVariant(1, 1, 0, Variant("Zed"));
  EXPECT_EQ(provider.getVariant(1, 1, 0), Variant("Ann"));
  EXPECT_EQ(provider.deleteRows(1, 2), 0);
  EXPECT_EQ(provider.insertRows(1, 2), 0);
  EXPECT_EQ(provider.getRowCount(), 3);
  EXPECT_EQ(provider.find(1, 1, Variant("Bob"), 0, 0), 0);
  EXPECT_EQ(provider.getLocale(), "");
  EXPECT_EQ(provider.isAsync(), vbFalse);
  provider.stopTransfer();
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

TEST(DataCollectionProviderTest, ListenersAreKeptAndRemovedWithTheWalkPastTheEnd) {
  const auto first = std::make_shared<SilentListener>();
  const auto second = std::make_shared<SilentListener>();
  const auto stranger = std::make_shared<SilentListener>();
  DataCollectionProvider provider;
  provider.LoadData(People(), kNoTypes);

  // The only listener goes without complaint, and then it is simply not there.
  provider.addOLEDBSimpleProviderListener(first);
  provider.removeOLEDBSimpleProviderListener(first);
  provider.removeOLEDBSimpleProviderListener(first);

  // Removing the first of two shortens the list under the walk, which then fails.
  provider.addOLEDBSimpleProviderListener(first);
  provider.addOLEDBSimpleProviderListener(second);
  const AutomationError error = ErrorOf([&] { provider.removeOLEDBSimpleProviderListener(first); });
  EXPECT_EQ(error.number(), errSubscriptOutOfRange);
  EXPECT_EQ(error.source(), "Varnex");
  EXPECT_EQ(error.description(), "Subscript out of range");
  // It was removed all the same: only the second is left, and it goes cleanly.
  provider.removeOLEDBSimpleProviderListener(second);
  provider.removeOLEDBSimpleProviderListener(stranger);

  // Removing the last of two works; a null listener is never added.
  provider.addOLEDBSimpleProviderListener(first);
  provider.addOLEDBSimpleProviderListener(nullptr);
  provider.addOLEDBSimpleProviderListener(second);
  provider.removeOLEDBSimpleProviderListener(second);
  provider.removeOLEDBSimpleProviderListener(first);

  // Nothing the provider does notifies anyone.
  provider.addOLEDBSimpleProviderListener(first);
  provider.setVariant(1, 1, 0, Variant("x"));
  provider.deleteRows(1, 1);
  provider.insertRows(1, 1);
  provider.LoadData(People(), kNoTypes, "Name");
  provider.stopTransfer();
}

}  // namespace
}  // namespace varnex
