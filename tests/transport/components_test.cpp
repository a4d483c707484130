// Adding, finding and reading components and collections through handles, walking the children
// with a range, and the names of the enumerations.
#include <gtest/gtest.h>

#include <vector>

#include "support/errors.hpp"
#include "runtime/xml.hpp"
#include "support/internals.hpp"
#include "varnex/transport.hpp"

namespace varnex {
namespace {

struct Read {
  Long handle = -99;
  std::string name = "unchanged";
  enComponentStatus status = static_cast<enComponentStatus>(-7);
  enComponentType type = static_cast<enComponentType>(-7);
};

Read Child(Transport& t, Long parent, Long k, Boolean ignore_deletes = vbFalse) {
  Read r;
  r.handle = t.GetCompChild(parent, k, r.name, r.status, r.type, ignore_deletes);
  return r;
}

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
  EXPECT_EQ(t.CountCompChildren(0), 1);
  EXPECT_THROW(t.AddComponent(0, "two words"), AutomationError);
  EXPECT_THROW(t.AddCollection(0, ""), AutomationError);
  EXPECT_EQ(t.TransportDoc(), "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/><COMPONENT><A/></COMPONENT><COMPONENT/><COLLECTION/></TALVEN>");
  EXPECT_EQ(t.CountCompChildren(0), 1) << "a failed addition does not mark the index stale";

  EXPECT_EQ(t.AddComponent(0, "b"), 2);
  EXPECT_EQ(t.CountCompChildren(0), 4) << "empty wrappers count as children once the index is rebuilt";
  // An empty wrapper, like a position beyond the children or an unknown parent, reads as the root.
  for (const Read& root : {Child(t, 0, 2), Child(t, 0, 9), Child(t, 77, 1)}) {
    EXPECT_EQ(root.handle, 0);
    EXPECT_EQ(root.name, "TALVEN");
    EXPECT_EQ(root.type, ctComponent);
    EXPECT_EQ(root.status, csNormal);
  }
  EXPECT_EQ(Child(t, 0, 4).name, "B");
}

TEST(ReadingComponents, ByHandleAndByNameInAnyCase) {
  Transport t;
  const Long site = t.AddComponent(0, "site", csModified);
  const Long visits = t.AddCollection(site, "visits");
  const Long visit = t.AddComponent(visits, "visit");
  const Long detail = t.AddComponent(visit, "detail");
  Read r;
  EXPECT_EQ(t.GetComponent(site, r.name, r.status, r.type), 1);
  EXPECT_EQ(r.name + to_string(r.status) + to_string(r.type), "SITEcsModifiedctComponent");
  t.GetComponent(visits, r.name, r.status, r.type);
  EXPECT_EQ(r.name + to_string(r.status) + to_string(r.type), "VISITScsNormalctcollection");
  r = Read{};
  t.GetComponent(0, r.name, r.status, r.type);
  EXPECT_EQ(r.name + to_string(r.status) + to_string(r.type), "TALVENcsNormal-7") << "the root has no wrapper";
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

TEST(ReadingComponents, ChildrenComeLiveFirstThenDeleted) {
  Transport t;
  const Long p = t.AddComponent(0, "p");
  const Long first = t.AddComponent(p, "first");
  const Long gone = t.AddCollection(p, "gone");
  testing::Internals(t).NodeOf(gone).append_attribute("STATUS") = "deleted";  // read at rebuild time
  const Long third = t.AddComponent(p, "third");

  EXPECT_EQ(t.CountCompChildren(p), 3);
  EXPECT_EQ(t.CountCompChildren(p, vbTrue), 2);
  EXPECT_EQ(t.CountCompChildren(p, 1), 3) << "only exactly True leaves the deleted out";
  EXPECT_EQ(Child(t, p, 1).handle, first);
  EXPECT_EQ(Child(t, p, 2).handle, third);
  const Read deleted = Child(t, p, 3);
  EXPECT_EQ(deleted.handle, gone);
  EXPECT_EQ(deleted.status, csDeleted);
  EXPECT_EQ(deleted.type, ctcollection);
  EXPECT_EQ(Child(t, p, 3, 1).handle, 0) << "any non-zero value ignores the deleted ones here";
  EXPECT_EQ(t.CountCompChildren(99), 0);
}

TEST(ReadingComponents, AReadWithIgnoreDeletesLeavesItsKeyBehindUntilTheNextRebuild) {
  Transport t;
  const Long live = t.AddComponent(0, "live");
  const Long gone = t.AddComponent(0, "gone", csDeleted);
  EXPECT_EQ(Child(t, 0, 2).handle, gone);
  EXPECT_EQ(Child(t, 0, 2, vbTrue).handle, 0);
  EXPECT_EQ(Child(t, 0, 2).handle, 0) << "the key left behind now answers handle 0";
  t.AddComponent(0, "later", csDeleted);
  EXPECT_EQ(Child(t, 0, 2).handle, gone) << "a rebuild forgets the keys left behind";
  EXPECT_EQ(Child(t, 0, 1).handle, live);
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

TEST(Ranges, ChildrenInGetCompChildOrderWithOrWithoutTheDeleted) {
  Transport t;
  const Long site = t.AddComponent(0, "site");
  t.AddCollection(site, "visits");
  t.DeleteComponent(t.AddComponent(site, "gone"));
  t.AddComponent(site, "kept", csNew);
  std::vector<std::string> all, live;
  for (const ChildInfo& c : t.Children(site)) {
    all.push_back(std::to_string(c.handle) + c.name + " " + to_string(c.status) + " " + to_string(c.type));
  }
  for (const ChildInfo& c : t.Children(site, false)) live.push_back(std::to_string(c.handle));
  EXPECT_EQ(all, (std::vector<std::string>{"2VISITS csNormal ctcollection", "4KEPT csNew ctComponent",
                                           "3GONE csDeleted ctComponent"}));
  EXPECT_EQ(live, (std::vector<std::string>{"2", "4"}));
  EXPECT_TRUE(t.Children(999).empty()) << "an unknown handle has no children, as CountCompChildren says";
}

TEST(EnumNames, MembersByNameOthersByNumber) {
  EXPECT_EQ(to_string(csDeleted), "csDeleted");
  EXPECT_EQ(to_string(ctcollection), "ctcollection");
  EXPECT_EQ(to_string(tmMedium), "tmMedium");
  EXPECT_EQ(to_string(ocmChanges), "ocmChanges");
  EXPECT_EQ(to_string(static_cast<enTransportMode>(3)), "3");
}

}  // namespace
}  // namespace varnex
