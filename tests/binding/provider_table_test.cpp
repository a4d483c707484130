#include "binding/provider_table.hpp"

#include <gtest/gtest.h>

#include "binding/fake_data_collection.hpp"
#include "varnex/data_collection_provider.hpp"

namespace varnex {
namespace {

TEST(ProviderTableTest, ReadsTheHeaderAndEveryRowAsText) {
  DataCollectionProvider provider;
  provider.LoadData(testing::People(), std::vector<Long>{vbString, vbString, vbBoolean}, "Name,Active,Active");
  const auto table = ReadProviderTable(provider);
  ASSERT_EQ(table.size(), 4u);
  EXPECT_EQ((std::vector<std::string>{"NAME", "ACTIVE", "ACTIVE"}), table[0]);
  EXPECT_EQ((std::vector<std::string>{"Ann", "yes", "True"}), table[1]);
  EXPECT_EQ((std::vector<std::string>{"Bob", "no", "False"}), table[2]);

  EXPECT_EQ(FormatProviderTable(provider),
            "NAME | ACTIVE | ACTIVE\n"
            "-----+--------+-------\n"
            "Ann  | yes    | True\n"
            "Bob  | no     | False\n"
            "Cy   | TRUE   | True\n");

  DataCollectionProvider empty;
  EXPECT_EQ(FormatProviderTable(empty), "\n\n");
}

}  // namespace
}  // namespace varnex
