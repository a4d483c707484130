// Deleting components, what handles of cut-out components still answer, and clearing the change
// marks after an exchange.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::Adopt;
using testing::Components;
using testing::ErrorOf;

TEST(DeleteComponent, MarksTheSubtreeAndCutsOutNewOnes) {
  Transport transport;  // S 1, V 2, M 3 (modified), N 4 (new), D 5 (deleted), E 6
  Adopt(transport, "<COMPONENT><S><COLLECTION><V><COMPONENT><M STATUS=\"MODIFIED\"/></COMPONENT><COMPONENT>"
                   "<N STATUS=\"NEW\"/></COMPONENT><COMPONENT><D STATUS=\"DELETED\"><COMPONENT><E/></COMPONENT></D>"
                   "</COMPONENT></V></COLLECTION></S></COMPONENT>");
  EXPECT_EQ(transport.DeleteComponent(1), vbTrue);
  EXPECT_EQ(Components(transport),
            "<COMPONENT><S STATUS=\"DELETED\"><COLLECTION><V STATUS=\"DELETED\"><COMPONENT><M STATUS=\"DELETED\"/>"
            "</COMPONENT><COMPONENT><D STATUS=\"DELETED\"><COMPONENT><E STATUS=\"DELETED\"/></COMPONENT></D>"
            "</COMPONENT></V></COLLECTION></S></COMPONENT>");
  EXPECT_EQ(transport.CountCompChildren(2, vbTrue), 0) << "the deletion marks the child index stale";

  // Forgetting, asked for by any non-zero value, cuts out whatever the status.
  Adopt(transport, "<COMPONENT><A/></COMPONENT><COMPONENT><B STATUS=\"MODIFIED\"/></COMPONENT>");
  for (Long handle : {1, 7, 8}) EXPECT_EQ(transport.DeleteComponent(handle, 1), vbTrue);
  EXPECT_EQ(Components(transport), "");
}

TEST(DeleteComponent, HandlesOfCutOutComponentsKeepAnswering) {
  Transport transport;
  const Long site = transport.AddComponent(0, "Site", csNew);
  const Long visits = transport.AddCollection(site, "Visits");
  transport.DeleteComponent(site);
  EXPECT_EQ(testing::ComponentOf(transport, visits) + ";" + testing::ComponentOf(transport, site),
            "1 VISITS csNormal ctcollection;1 SITE csNew ctComponent");
  // Additions go into the cut-out tree; marking works there; the cut-out top has no parent.
  const Long visit = transport.AddComponent(visits, "Visit");
  EXPECT_EQ(transport.FindChildCompByName(visits, "visit"), visit);
  EXPECT_EQ(transport.FindChildCompByName(0, "Site"), 0);
  EXPECT_AUTOMATION_ERROR(transport.ChildOfCollection(site), errObjectNotSet,
                          "ChiildOfCollection: Object variable or With block variable not set");
  EXPECT_EQ(transport.GetComponentXML(visit),
            "<TALVEN><COMPONENT><VISIT/></COMPONENT><DOMAIN/><PROPERTY_DOMAINS/></TALVEN>");
  EXPECT_EQ(transport.DeleteComponent(visits), vbTrue);
  EXPECT_EQ(transport.GetComponentStatus(visit), csDeleted);
  EXPECT_EQ(ErrorOf([&] { transport.DeleteComponent(site); }).description(),
            "DeleteComponent: RecurseDeleteComponent: Object variable or With block variable not set");
  EXPECT_EQ(transport.DeleteComponent(visits, vbTrue), vbTrue);
  EXPECT_EQ(Components(transport), "");
}

TEST(DeleteComponent, Failures) {
  Transport transport;
  const Long site = transport.AddComponent(0, "Site");
  EXPECT_AUTOMATION_ERROR(transport.DeleteComponent(99), errObjectRequired,
                          "DeleteComponent: RecurseDeleteComponent: Object required");

  // A failed addition leaves an empty wrapper, read as handle 0: the root, which leads back.
  EXPECT_EQ(ErrorOf([&] { transport.AddComponent(site, ""); }).number(), errXml);
  EXPECT_AUTOMATION_ERROR(transport.DeleteComponent(site), errOutOfStackSpace,
                          "DeleteComponent: RecurseDeleteComponent: RecurseDeleteComponent: "
                          "RecurseDeleteComponent: Out of stack space");
  EXPECT_EQ(transport.GetComponentStatus(0), csDeleted);  // marked before the walk came back
}

TEST(ResetStatus, ClearsModifiedCutsOutDeletedLeavesNewAlone) {
  Transport transport;  // S 1, R 2, H 3, X 4, W 5, Y 6, O 7
  Adopt(transport,
        "<COMPONENT><S STATUS=\"MODIFIED\"><PROPERTIES><P STATUS=\"MODIFIED\" ORIGINAL=\"a\">b</P><Q STATUS=\"NEW\"/>"
        "</PROPERTIES><COMPONENT><R><PROPERTIES><P STATUS=\"MODIFIED\" ORIGINAL=\"1\">2</P></PROPERTIES>"
        "<COMPONENT><H STATUS=\" deleted \"><COMPONENT><X/></COMPONENT></H></COMPONENT></R></COMPONENT>"
        "<COMPONENT><W STATUS=\"NEW\"><COMPONENT><Y STATUS=\"MODIFIED\"/></COMPONENT></W></COMPONENT></S></COMPONENT>"
        "<COMPONENT><O STATUS=\"MODIFIED\"/></COMPONENT>");
  EXPECT_EQ(transport.ResetStatus(), 0);
  EXPECT_EQ(Components(transport),
            "<COMPONENT><S><PROPERTIES><P>b</P><Q/></PROPERTIES><COMPONENT><R><PROPERTIES>"
            "<P STATUS=\"MODIFIED\" ORIGINAL=\"1\">2</P></PROPERTIES></R></COMPONENT><COMPONENT><W STATUS=\"NEW\">"
            "<COMPONENT><Y STATUS=\"MODIFIED\"/></COMPONENT></W></COMPONENT></S></COMPONENT>"
            "<COMPONENT><O STATUS=\"MODIFIED\"/></COMPONENT>");
  EXPECT_EQ(transport.GetComponentStatus(3), csDeleted);
}

TEST(ResetStatus, Failures) {
  Transport empty;  // nothing under handle 1
  EXPECT_AUTOMATION_ERROR_FROM(empty.ResetStatus(), errObjectRequired, "Transport",
                               "Error Resetting Component Status: Object required");

  // A second element in a wrapper has no handle and reads as the root, which leads back to 1.
  Transport looped;
  Adopt(looped, "<COMPONENT><S><COMPONENT><R/><STRAY/></COMPONENT></S></COMPONENT>");
  EXPECT_AUTOMATION_ERROR(looped.ResetStatus(), errOutOfStackSpace,
                          "Error Resetting Component Status: Error Resetting Component Status: "
                          "Error Resetting Component Status: Out of stack space");

  // A deleted component already cut out has nothing left to be cut from.
  looped.DeleteComponent(1, vbTrue);
  looped.DeleteComponent(1);
  EXPECT_EQ(ErrorOf([&] { looped.ResetStatus(); }).description(),
            "Error Resetting Component Status: RecurseDeleteComponent: "
            "Object variable or With block variable not set");
}

}  // namespace
}  // namespace varnex
