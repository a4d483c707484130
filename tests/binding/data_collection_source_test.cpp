#include "varnex/data_collection_source.hpp"

#include <gtest/gtest.h>

#include "binding/fake_data_collection.hpp"

namespace varnex {
namespace {

TEST(DataCollectionSourceTest, RequestsFailWithoutDataOrWithoutTypes) {
  DataCollectionSource source;
  source.DataTypes({});
  EXPECT_AUTOMATION_ERROR_FROM(source.GetDataMember(), static_cast<Long>(0x80040201), "DataCollectionSource",
                               "DataSource contains no data.");

  DataCollectionSource untyped;
  untyped.Data(testing::People());
  EXPECT_AUTOMATION_ERROR_FROM(untyped.GetDataMember(), errClass, "DataCollectionProvider",
                               "Error Loading Data into Provider.");
  // An empty list is a list that was set.
  untyped.DataTypes({});
  EXPECT_EQ(untyped.GetDataMember()->getRowCount(), 3);
}

TEST(DataCollectionSourceTest, EachRequestLoadsAFreshProviderWithTheSettingsOfTheMoment) {
  DataCollectionSource source;
  source.Data(testing::People());
  source.DataTypes({vbString, vbBoolean});
  const auto by_names = source.GetDataMember();
  EXPECT_EQ(by_names->getVariant(0, 3, 0), Variant("ACTIVE"));
  EXPECT_EQ(by_names->getVariant(1, 2, 0), Variant::FromBoolean(vbFalse));  // "A1" is no Boolean word

  std::vector<Long> types{vbBoolean};
  source.Fields("Active,Name");
  source.DataTypes(types);
  types[0] = vbString;  // the source holds its own copy
  const auto by_fields = source.GetDataMember("any name");
  EXPECT_NE(by_fields, by_names);
  EXPECT_EQ(by_fields->getVariant(1, 1, 0), Variant::FromBoolean(vbTrue));
  EXPECT_EQ(by_fields->getVariant(3, 2, 0), Variant("Cy"));
  EXPECT_EQ(by_names->getColumnCount(), 3);
  EXPECT_NE(source.GetDataMember(), by_fields);
}

}  // namespace
}  // namespace varnex
