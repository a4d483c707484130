// Adding, finding and reading components and collections through handles and through the range
// over children, and the names of the enumerations.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::ChildOf;
using testing::ComponentOf;

TEST(AddingComponents, WritesWrappersAndUpperCasedNamesAndIssuesHandles) {
  Transport t;
  EXPECT_EQ(t.AddComponent(0, "site"), 1);
  EXPECT_EQ(t.AddComponent(0, "Café", csNew), 2);
  const Long visits = t.AddCollection(1, "visits");
  EXPECT_EQ(visits, 3);
  EXPECT_EQ(t.AddComponent(visits, "visit", csModified), 4);
  t.AddComponent(visits, "visit", csDeleted);
  t.AddComponent(visits, "visit", static_cast<enComponentStatus>(9));
  EXPECT_EQ(t.TransportDoc(),
            "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/>"
            "<COMPONENT><SITE><COLLECTION><VISITS>"
            "<COMPONENT><VISIT STATUS=\"MODIFIED\"/></COMPONENT>"
            "<COMPONENT><VISIT STATUS=\"DELETED\"/></COMPONENT>"
            "<COMPONENT><VISIT/></COMPONENT>"
            "</VISITS></COLLECTION></SITE></COMPONENT>"
            "<COMPONENT><CAFÉ STATUS=\"NEW\"/></COMPONENT></TALVEN>");
}

TEST(AddingComponents, AnInvalidNameLeavesAnEmptyWrapperThatLaterCountsAsAChild) {
  Transport t;
  EXPECT_THROW(t.AddComponent(99, "x"), AutomationError);
  EXPECT_EQ(t.AddComponent(0, "a"), 1) << "a failed addition issues no handle";
  EXPECT_THROW(t.AddComponent(0, "two words"), AutomationError);
  EXPECT_THROW(t.AddCollection(0, ""), AutomationError);
  EXPECT_EQ(t.TransportDoc(), "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/><COMPONENT><A/></COMPONENT><COMPONENT/><COLLECTION/></TALVEN>");

  EXPECT_EQ(t.AddComponent(0, "b"), 2);
  EXPECT_EQ(t.CountCompChildren(0), 4) << "empty wrappers count as children once the index is rebuilt";
  // An empty wrapper, like a position beyond the children or an unknown parent, reads as the root.
  for (const auto& [parent, k] : {std::pair{0, 2}, {0, 9}, {77, 1}}) {
    EXPECT_EQ(ChildOf(t, parent, k), "0 TALVEN csNormal ctComponent") << parent << "," << k;
  }
  EXPECT_EQ(ChildOf(t, 0, 4), "2 B csNormal ctComponent");
}

TEST(ReadingComponents, ByHandleAndByNameInAnyCase) {
  Transport t;
  const Long site = t.AddComponent(0, "site", csModified);
  const Long visits = t.AddCollection(site, "visits");
  const Long visit = t.AddComponent(visits, "visit");
  const Long detail = t.AddComponent(visit, "detail");
  EXPECT_EQ(ComponentOf(t, site) + ";" + ComponentOf(t, visits),
            "1 SITE csModified ctComponent;1 VISITS csNormal ctcollection");
  EXPECT_EQ(ComponentOf(t, 0), "1 TALVEN csNormal -7") << "the root has no wrapper";
  EXPECT_EQ(t.GetComponentStatus(site), csModified);
  // The collection that holds a component directly.
  EXPECT_EQ(t.ChildOfCollection(visit), "VISITS");
  for (const Long other : {site, visits, detail}) EXPECT_EQ(t.ChildOfCollection(other), "");

  // By name: only direct children, the name an XPath step.
  EXPECT_EQ(t.FindChildCompByName(0, "Site"), site);
  EXPECT_EQ(t.FindChildCompByName(site, "VISITS"), visits);
  EXPECT_EQ(t.FindChildCompByName(site, "visit"), 0);
  EXPECT_EQ(t.FindChildCompByName(detail, "two words"), 0) << "no children: the name is not even read";
  EXPECT_EQ(t.FindChildCompByName(0, "*"), site);
  const auto error = testing::ErrorOf([&] { t.FindChildCompByName(0, "two words"); });
  EXPECT_EQ(error.number(), errXml);
  EXPECT_EQ(error.description().rfind("FindChildCompByName: XPath error", 0), 0u) << error.description();
}

// Through GetCompChild and through the range, which reads each child with it.
TEST(ReadingComponents, ChildrenComeLiveFirstThenDeleted) {
  Transport t;
  const Long p = t.AddComponent(0, "p");
  t.AddComponent(p, "first", csNew);
  testing::Internals(t).NodeOf(t.AddCollection(p, "gone")).append_attribute("STATUS") = "deleted";  // read at rebuild
  t.AddComponent(p, "third");

  EXPECT_EQ(t.CountCompChildren(p, 1), 3) << "only exactly True leaves the deleted out";
  std::string all, live;
  for (const ChildInfo& c : t.Children(p)) {
    all += std::to_string(c.handle) + c.name + " " + to_string(c.status) + " " + to_string(c.type) + ";";
  }
  for (const ChildInfo& c : t.Children(p, false)) live += std::to_string(c.handle);
  EXPECT_EQ(all, "2FIRST csNew ctComponent;4THIRD csNormal ctComponent;3GONE csDeleted ctcollection;");
  EXPECT_EQ(live, "24");
  EXPECT_EQ(ChildOf(t, p, 3, 1), "0 TALVEN csNormal ctComponent") << "any non-zero value ignores the deleted ones here";
  EXPECT_TRUE(t.Children(999).empty()) << "an unknown handle has no children, as CountCompChildren says";
}

TEST(ReadingComponents, AReadWithIgnoreDeletesLeavesItsKeyBehindUntilTheNextRebuild) {
  Transport t;
  t.AddComponent(0, "live");
  t.AddComponent(0, "gone", csDeleted);
  const std::string gone = "2 GONE csDeleted ctComponent", root = "0 TALVEN csNormal ctComponent";
  EXPECT_EQ(ChildOf(t, 0, 2), gone);
  EXPECT_EQ(ChildOf(t, 0, 2, vbTrue), root);
  EXPECT_EQ(ChildOf(t, 0, 2), root) << "the key left behind now answers handle 0";
  t.AddComponent(0, "later", csDeleted);
  EXPECT_EQ(ChildOf(t, 0, 2) + ";" + ChildOf(t, 0, 1), gone + ";1 LIVE csNormal ctComponent")
      << "a rebuild forgets the keys left behind";
}

TEST(ComponentStatus, RemovingItClearsTheComponentAndItsPropertyMarksOnly) {
  Transport t;
  const Long site = t.AddComponent(0, "site", csModified);
  const Long child = t.AddComponent(site, "child", csNew);
  pugi::xml_node property = testing::Internals(t).NodeOf(site).prepend_child("PROPERTIES").append_child("NAME");
  property.append_attribute("STATUS") = "MODIFIED";
  property.append_attribute("ORIGINAL") = "old";
  property.append_attribute("OTHER") = "kept";
  t.RemoveComponentStatus(site);
  EXPECT_EQ(t.GetComponentStatus(site), csNormal);
  EXPECT_EQ(t.GetComponentStatus(child), csNew);
  EXPECT_EQ(xml::Serialize(property), "<NAME OTHER=\"kept\"/>");
}

TEST(EnumNames, MembersByNameOthersByNumber) {
  EXPECT_EQ(to_string(csDeleted) + to_string(ctcollection) + to_string(tmMedium) + to_string(ocmChanges) +
                to_string(static_cast<enTransportMode>(3)),
            "csDeletedctcollectiontmMediumocmChanges3");
}

}  // namespace
}  // namespace varnex
