// Removals from a large dictionary: removed entries are marked and dropped in bulk later, which
// must never show in the order, the count or the lookups.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/errors.hpp"
#include "varnex/dictionary.hpp"

namespace varnex {
namespace {

// "k" and the number (built by appending: "k" + std::string trips a false warning of g++ 12).
std::string Key(int number) {
  std::string key = "k";
  key += std::to_string(number);
  return key;
}

TEST(DictionaryRemoval, ManyRemovalsKeepOrderCountAndLookups) {
  Dictionary d(TextCompare);
  for (int i = 0; i < 300; ++i) d.Add(Key(i), Variant(Long{i}));
  std::vector<std::string> kept;
  for (int i = 0; i < 300; ++i) {
    if (i % 3 == 0) {
      kept.push_back(Key(i));
    } else {
      std::string upper = Key(i);
      upper[0] = 'K';
      d.Remove(upper);  // text compare: any case
    }
  }
  EXPECT_EQ(d.Count(), 100);
  EXPECT_EQ(d.Keys(), kept);
  EXPECT_EQ(d.Item("k150").AsLong(), 150);
  EXPECT_FALSE(d.Exists("k151"));
  EXPECT_AUTOMATION_ERROR(d.Remove("k151"), 32811, "Element not found");
  EXPECT_AUTOMATION_ERROR(d.CompareMode(BinaryCompare), errInvalidProcedureCall, "Invalid procedure call or argument");

  // A removed key comes back at the end; a read of a missing one adds it there too.
  d.Add("k1", Variant("again"));
  EXPECT_TRUE(d.Item("k2").IsEmpty());
  EXPECT_EQ(d.Count(), 102);
  EXPECT_EQ(d.Keys().back(), "k2");
  EXPECT_EQ(d.Keys()[100], "k1");
  EXPECT_EQ(d.Items()[100].AsString(), "again");

  for (const std::string& key : d.Keys()) d.Remove(key);
  EXPECT_EQ(d.Count(), 0);
  EXPECT_TRUE(d.Keys().empty());
  d.CompareMode(BinaryCompare);  // allowed once the dictionary is empty again
  d.Add("A", Variant("x"));
  EXPECT_FALSE(d.Exists("a"));
}

}  // namespace
}  // namespace varnex
