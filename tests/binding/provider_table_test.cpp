#include "binding/provider_table.hpp"

#include <gtest/gtest.h>

#include "binding/fake_data_collection.hpp"
#include "varnex/data_collection_provider.hpp"

namespace varnex {
namespace {

TEST(ProviderTableTest, LaysOutTheHeaderAndEveryRow) {
  DataCollectionProvider provider;
  provider.LoadData(testing::People(), std::vector<Long>{vbString, vbString, vbBoolean}, "Name,Active,Active");
  EXPECT_EQ(FormatProviderTable(provider),
            "NAME | ACTIVE | ACTIVE\n"
            "-----+--------+-------\n"
            "Ann  | yes    | True\n"
            "Bob  | no     | False\n"
            "Cy   | TRUE   | True\n");
}

}  // namespace
}  // namespace varnex
