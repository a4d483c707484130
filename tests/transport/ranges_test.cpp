// Walking children and properties with ranges, and the names of the enumerations.
#include <gtest/gtest.h>

#include <vector>

#include "varnex/transport.hpp"

namespace varnex {
namespace {

TEST(Ranges, ChildrenInGetCompChildOrderWithOrWithoutTheDeleted) {
  Transport t;
  const Long site = t.AddComponent(0, "site");
  const Long visits = t.AddCollection(site, "visits");
  const Long gone = t.AddComponent(site, "gone");
  const Long kept = t.AddComponent(site, "kept", csNew);
  t.DeleteComponent(gone);

  std::vector<Long> all, live;
  for (const ChildInfo& child : t.Children(site)) all.push_back(child.handle);
  for (const ChildInfo& child : t.Children(site, false)) live.push_back(child.handle);
  EXPECT_EQ(all, (std::vector<Long>{visits, kept, gone}));
  EXPECT_EQ(live, (std::vector<Long>{visits, kept}));

  const ChildInfo first = *t.Children(site).begin();
  EXPECT_EQ(first.name, "VISITS");
  EXPECT_EQ(first.type, ctcollection);
  EXPECT_EQ((*++t.Children(site).begin()).status, csNew);
  EXPECT_TRUE(t.Children(visits).empty());
  EXPECT_TRUE(t.Children(999).empty()) << "an unknown handle has no children, as CountCompChildren says";
}

TEST(Ranges, PropertiesWithTheirNumbersValuesAndMarks) {
  Transport t;
  const Long site = t.AddComponent(0, "site");
  t.AddCompProperty(site, "name", "North");
  t.AddCompProperty(site, "size", "3");
  t.ModifyCompProperty(site, 2, "4");
  std::vector<PropertyInfo> read(t.Properties(site).begin(), t.Properties(site).end());
  ASSERT_EQ(read.size(), 2u);
  EXPECT_EQ(read[0].position, 1);
  EXPECT_EQ(read[0].name, "NAME");
  EXPECT_EQ(read[1].value, "4");
  EXPECT_EQ(read[1].original, "3");
  EXPECT_EQ(read[1].status, csModified);
}

TEST(EnumNames, MembersByNameOthersByNumber) {
  EXPECT_EQ(to_string(csDeleted), "csDeleted");
  EXPECT_EQ(to_string(ctcollection), "ctcollection");
  EXPECT_EQ(to_string(tmMedium), "tmMedium");
  EXPECT_EQ(to_string(ocmChanges), "ocmChanges");
  EXPECT_EQ(to_string(static_cast<enComponentStatus>(-1)), "-1");
  EXPECT_EQ(to_string(static_cast<enTransportMode>(3)), "3");
}

}  // namespace
}  // namespace varnex
