// Clearing change marks after an exchange.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::Adopt;
using testing::Components;
using testing::Failure;

// SITE 1, ROOM 2, HALL 3, DESK 4, WING 5, DOOR 6, VISITS 7, VISIT 8, OTHER 9.
constexpr const char* kMarked =
    "<TALVEN><COMPONENT><SITE STATUS=\"MODIFIED\"><PROPERTIES>"
    "<NAME xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"South\">North</NAME>"
    "<CODE xml:space=\"preserve\" STATUS=\"NEW\">7</CODE></PROPERTIES>"
    "<COMPONENT><ROOM><PROPERTIES><SIZE STATUS=\"MODIFIED\" ORIGINAL=\"1\">2</SIZE></PROPERTIES></ROOM></COMPONENT>"
    "<COMPONENT><HALL STATUS=\"DELETED\"><COMPONENT><DESK/></COMPONENT></HALL></COMPONENT>"
    "<COMPONENT><WING STATUS=\"NEW\"><PROPERTIES><X STATUS=\"MODIFIED\" ORIGINAL=\"a\">b</X></PROPERTIES>"
    "<COMPONENT><DOOR STATUS=\"MODIFIED\"/></COMPONENT></WING></COMPONENT>"
    "<COLLECTION><VISITS><COMPONENT><VISIT STATUS=\" modified \"><PROPERTIES><D STATUS=\"MODIFIED\" ORIGINAL=\"1\">2</D>"
    "</PROPERTIES></VISIT></COMPONENT></VISITS></COLLECTION>"
    "</SITE></COMPONENT>"
    "<COMPONENT><OTHER STATUS=\"MODIFIED\"/></COMPONENT></TALVEN>";

TEST(ResetStatus, ClearsModifiedCutsOutDeletedAndLeavesNewAlone) {
  Transport transport;
  Adopt(transport, kMarked);

  EXPECT_EQ(transport.ResetStatus(), 0);

  EXPECT_EQ(Components(transport),
            "<TALVEN><COMPONENT><SITE><PROPERTIES><NAME xml:space=\"preserve\">North</NAME>"
            "<CODE xml:space=\"preserve\">7</CODE></PROPERTIES>"
            // a normal component keeps its properties' marks
            "<COMPONENT><ROOM><PROPERTIES><SIZE STATUS=\"MODIFIED\" ORIGINAL=\"1\">2</SIZE></PROPERTIES></ROOM>"
            "</COMPONENT>"
            // a new one is not visited: every mark below it stays
            "<COMPONENT><WING STATUS=\"NEW\"><PROPERTIES><X STATUS=\"MODIFIED\" ORIGINAL=\"a\">b</X></PROPERTIES>"
            "<COMPONENT><DOOR STATUS=\"MODIFIED\"/></COMPONENT></WING></COMPONENT>"
            "<COLLECTION><VISITS><COMPONENT><VISIT><PROPERTIES><D>2</D></PROPERTIES></VISIT></COMPONENT>"
            "</VISITS></COLLECTION></SITE></COMPONENT>"
            // only the subtree of handle 1 is visited
            "<COMPONENT><OTHER STATUS=\"MODIFIED\"/></COMPONENT></TALVEN>");
}

TEST(ResetStatus, SetsNoStaleFlag) {
  Transport transport;
  Adopt(transport, kMarked);
  EXPECT_EQ(transport.CountCompChildren(1, vbTrue), 3);
  EXPECT_EQ(transport.CountCompChildren(1), 4);

  transport.ResetStatus();

  // The cut-out HALL is still counted among the deleted children, and still answers.
  EXPECT_FALSE(transport.impl().child_indexes_dirty);
  EXPECT_EQ(transport.CountCompChildren(1), 4);
  std::string name;
  enComponentStatus status = csNormal;
  enComponentType type = ctComponent;
  EXPECT_EQ(transport.GetCompChild(1, 4, name, status, type), 3);
  EXPECT_EQ(name, "HALL");
  EXPECT_EQ(status, csDeleted);

  transport.AddComponent(1, "Annex");
  EXPECT_EQ(transport.CountCompChildren(1), 4);
  EXPECT_EQ(transport.CountCompChildren(1, vbTrue), 4);
}

TEST(ResetStatus, Failures) {
  // Without a handle 1 there is nothing to start from.
  Transport empty;
  const AutomationError missing = Failure([&] { empty.ResetStatus(); });
  EXPECT_EQ(missing.number(), errObjectRequired);
  EXPECT_EQ(missing.source(), "Transport");
  EXPECT_EQ(missing.description(), "Error Resetting Component Status: Object required");

  // A deleted component whose wrapper was already cut out has nothing to be cut from.
  Transport cut;
  const Long site = cut.AddComponent(0, "Site");
  cut.impl().HardDeleteComponent(site);
  cut.DeleteComponent(site);
  const AutomationError nested = Failure([&] { cut.ResetStatus(); });
  EXPECT_EQ(nested.number(), errObjectNotSet);
  EXPECT_EQ(nested.source(), "Transport");
  EXPECT_EQ(nested.description(),
            "Error Resetting Component Status: RecurseDeleteComponent: "
            "Object variable or With block variable not set");

  // An element inside a wrapper that has no handle reads as the root, which leads back to handle
  // 1: one prefix per level.
  Transport looped;
  Adopt(looped, "<TALVEN><COMPONENT><SITE><COMPONENT><ROOM/><STRAY/></COMPONENT></SITE></COMPONENT></TALVEN>");
  const AutomationError loop = Failure([&] { looped.ResetStatus(); });
  EXPECT_EQ(loop.number(), errOutOfStackSpace);
  EXPECT_EQ(loop.source(), "Transport");
  EXPECT_EQ(loop.description(),
            "Error Resetting Component Status: Error Resetting Component Status: "
            "Error Resetting Component Status: Out of stack space");
}

}  // namespace
}  // namespace varnex
