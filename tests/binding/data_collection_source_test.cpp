#include "varnex/data_collection_source.hpp"

#include <gtest/gtest.h>

#include "binding/fake_data_collection.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;
using testing::People;

TEST(DataCollectionSourceTest, ARequestWithoutDataFails) {
  DataCollectionSource source;
  source.Fields("Name");
  source.DataTypes({vbString});
  AutomationError error = ErrorOf([&] { source.GetDataMember(); });
  EXPECT_EQ(error.number(), errClass);
  EXPECT_EQ(error.number(), static_cast<Long>(0x80040201));
  EXPECT_EQ(error.source(), "DataCollectionSource");
  EXPECT_EQ(error.description(), "DataSource contains no data.");

  source.Data(nullptr);
  EXPECT_EQ(ErrorOf([&] { source.GetDataMember("any"); }).description(), "DataSource contains no data.");
}

TEST(DataCollectionSourceTest, DataTypesNeverSetFailTheProviderButAnEmptyListDoesNot) {
  DataCollectionSource source;
  source.Data(People());
  const AutomationError error = ErrorOf([&] { source.GetDataMember(); });
  EXPECT_EQ(error.number(), errClass);
  EXPECT_EQ(error.source(), "DataCollectionProvider");
  EXPECT_EQ(error.description(), "Error Loading Data into Provider.");

  source.DataTypes({});
  const auto provider = source.GetDataMember();
  ASSERT_NE(provider, nullptr);
  EXPECT_EQ(provider->getRowCount(), 3);
}

TEST(DataCollectionSourceTest, ProvidersTakeTheFieldsAndTypesOfTheirRequest) {
  DataCollectionSource source;
  source.Data(People());
  source.DataTypes({vbString, vbBoolean});

  // Without Fields the columns are the collection's property names.
  const auto by_names = source.GetDataMember();
  EXPECT_EQ(by_names->getColumnCount(), 3);
  EXPECT_EQ(by_names->getVariant(0, 3, 0), Variant("ACTIVE"));
  EXPECT_EQ(by_names->getVariant(1, 2, 0), Variant::FromBoolean(vbFalse));  // "A1" is no Boolean word

  std::vector<Long> types{vbBoolean, vbString};
  source.Fields("Active,Name");
  source.DataTypes(types);
  types[0] = vbString;  // the source holds its own copy
  const auto by_fields = source.GetDataMember("ignored");
  EXPECT_NE(by_fields, by_names);
  EXPECT_EQ(by_fields->getColumnCount(), 2);
  EXPECT_EQ(by_fields->getVariant(1, 1, 0), Variant::FromBoolean(vbTrue));
  EXPECT_EQ(by_fields->getVariant(2, 1, 0), Variant::FromBoolean(vbFalse));
  EXPECT_EQ(by_fields->getVariant(3, 2, 0), Variant("Cy"));

  // Later settings reach only later requests.
  EXPECT_EQ(by_names->getColumnCount(), 3);
  const auto again = source.GetDataMember();
  EXPECT_NE(again, by_fields);
  EXPECT_EQ(again->getColumnCount(), 2);
}

}  // namespace
}  // namespace varnex
