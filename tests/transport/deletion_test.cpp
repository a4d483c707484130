// Deleting components: marking subtrees "DELETED", cutting out new ones, forgetting, and what
// handles of cut-out components still answer.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::Adopt;
using testing::Components;
using testing::Failure;

// SITE 1, VISITS 2, VISIT 3 (modified), VISIT 4 (new), VISIT 5 (deleted), NOTE 6.
constexpr const char* kSite =
    "<TALVEN><COMPONENT><SITE><PROPERTIES><NAME xml:space=\"preserve\">North</NAME></PROPERTIES>"
    "<COLLECTION><VISITS>"
    "<COMPONENT><VISIT STATUS=\"MODIFIED\"/></COMPONENT>"
    "<COMPONENT><VISIT STATUS=\"NEW\"/></COMPONENT>"
    "<COMPONENT><VISIT STATUS=\"DELETED\"><COMPONENT><NOTE/></COMPONENT></VISIT></COMPONENT>"
    "</VISITS></COLLECTION></SITE></COMPONENT></TALVEN>";

TEST(DeleteComponent, MarksTheSubtreeAndCutsOutNewComponents) {
  Transport transport;
  Adopt(transport, kSite);
  EXPECT_EQ(transport.CountCompChildren(2), 3);

  EXPECT_EQ(transport.DeleteComponent(1), vbTrue);

  // Normal and modified become "DELETED", a deleted one is walked again (its normal child is
  // marked), the new one goes with its wrapper.
  EXPECT_EQ(Components(transport),
            "<TALVEN><COMPONENT><SITE STATUS=\"DELETED\"><PROPERTIES><NAME xml:space=\"preserve\">North</NAME>"
            "</PROPERTIES><COLLECTION><VISITS STATUS=\"DELETED\">"
            "<COMPONENT><VISIT STATUS=\"DELETED\"/></COMPONENT>"
            "<COMPONENT><VISIT STATUS=\"DELETED\"><COMPONENT><NOTE STATUS=\"DELETED\"/></COMPONENT></VISIT></COMPONENT>"
            "</VISITS></COLLECTION></SITE></COMPONENT></TALVEN>");
  EXPECT_EQ(transport.CountCompChildren(2), 2);
  EXPECT_EQ(transport.CountCompChildren(2, vbTrue), 0);
  EXPECT_EQ(transport.CountCompChildren(0, vbTrue), 0);
  EXPECT_EQ(transport.CountCompChildren(0), 1);
}

TEST(DeleteComponent, ForgettingRemovesWhateverTheStatus) {
  Transport transport;
  Adopt(transport,
        "<TALVEN><COMPONENT><A/></COMPONENT><COMPONENT><B STATUS=\"MODIFIED\"><COMPONENT><C/></COMPONENT></B>"
        "</COMPONENT><COMPONENT><D STATUS=\"DELETED\"/></COMPONENT><COMPONENT><E STATUS=\"NEW\"/></COMPONENT>"
        "</TALVEN>");
  for (Long handle : {1, 2, 4, 5}) EXPECT_EQ(transport.DeleteComponent(handle, vbTrue), vbTrue);
  EXPECT_EQ(Components(transport), "<TALVEN></TALVEN>");
  EXPECT_EQ(transport.CountCompChildren(0), 0);
}

TEST(DeleteComponent, NewComponentGoesWithItsSubtree) {
  Transport transport;
  const Long site = transport.AddComponent(0, "Site", csNew);
  const Long room = transport.AddComponent(site, "Room");
  transport.AddComponent(0, "Other");
  EXPECT_EQ(transport.CountCompChildren(0), 2);

  EXPECT_EQ(transport.DeleteComponent(site), vbTrue);

  EXPECT_EQ(Components(transport), "<TALVEN><COMPONENT><OTHER/></COMPONENT></TALVEN>");
  EXPECT_EQ(transport.CountCompChildren(0), 1);
  // Nothing below a cut-out component was visited.
  EXPECT_EQ(transport.GetComponentStatus(room), csNormal);
}

TEST(DeleteComponent, HandlesOfCutOutComponentsKeepAnswering) {
  Transport transport;
  const Long site = transport.AddComponent(0, "Site", csNew);
  const Long visits = transport.AddCollection(site, "Visits");
  transport.DeleteComponent(site);

  std::string name;
  enComponentStatus status = csNormal;
  enComponentType type = ctcollection;
  EXPECT_EQ(transport.GetComponent(site, name, status, type), 1);
  EXPECT_EQ(name, "SITE");
  EXPECT_EQ(status, csNew);
  EXPECT_EQ(type, ctComponent);
  EXPECT_EQ(transport.GetComponent(visits, name, status, type), 1);
  EXPECT_EQ(type, ctcollection);

  // Additions under a cut-out component go into its own tree, never into the document.
  const Long visit = transport.AddComponent(visits, "Visit");
  EXPECT_EQ(transport.GetComponentStatus(visit), csNormal);
  EXPECT_EQ(transport.CountCompChildren(visits), 0);
  EXPECT_EQ(Components(transport), "<TALVEN></TALVEN>");

  // Marking works inside the cut-out tree; cutting its top out again has nothing to cut from.
  EXPECT_EQ(transport.DeleteComponent(visits), vbTrue);
  EXPECT_EQ(transport.GetComponentStatus(visit), csDeleted);
  const AutomationError again = Failure([&] { transport.DeleteComponent(site); });
  EXPECT_EQ(again.number(), errObjectNotSet);
  EXPECT_EQ(again.description(),
            "DeleteComponent: RecurseDeleteComponent: Object variable or With block variable not set");
}

TEST(DeleteComponent, Failures) {
  Transport transport;
  transport.AddComponent(0, "Site");

  const AutomationError unknown = Failure([&] { transport.DeleteComponent(99); });
  EXPECT_EQ(unknown.number(), errObjectRequired);
  EXPECT_EQ(unknown.source(), "Varnex");
  EXPECT_EQ(unknown.description(), "DeleteComponent: RecurseDeleteComponent: Object required");

  // The root's wrapper is the document itself, which has no parent to be cut from.
  const AutomationError root = Failure([&] { transport.DeleteComponent(0, vbTrue); });
  EXPECT_EQ(root.number(), errObjectNotSet);
  EXPECT_EQ(root.description(),
            "DeleteComponent: RecurseDeleteComponent: Object variable or With block variable not set");
}

TEST(DeleteComponent, WalkThatComesBackToItselfRunsOutOfStack) {
  Transport transport;
  const Long site = transport.AddComponent(0, "Site");
  // A failed addition leaves an empty wrapper, whose component reads as handle 0: the root, which
  // holds the component being deleted.
  EXPECT_EQ(Failure([&] { transport.AddComponent(site, ""); }).number(), errXml);

  const AutomationError error = Failure([&] { transport.DeleteComponent(site); });
  EXPECT_EQ(error.number(), errOutOfStackSpace);
  EXPECT_EQ(error.description(),
            "DeleteComponent: RecurseDeleteComponent: RecurseDeleteComponent: RecurseDeleteComponent: "
            "Out of stack space");
  // What was marked before the failure stays marked, the root included.
  EXPECT_EQ(transport.GetComponentStatus(site), csDeleted);
  EXPECT_EQ(transport.GetComponentStatus(0), csDeleted);

  // Forgetting cuts the component out without walking below it.
  EXPECT_EQ(transport.DeleteComponent(site, vbTrue), vbTrue);
}

TEST(HardDeleteComponent, CutsOutWhateverTheStatusAndMarksIndexesStale) {
  Transport transport;
  const Long kept = transport.AddComponent(0, "Kept");
  const Long normal = transport.AddComponent(0, "Normal");
  const Long deleted = transport.AddComponent(0, "Deleted", csDeleted);
  EXPECT_EQ(transport.CountCompChildren(0), 3);

  Transport::Impl& impl = transport.impl();
  EXPECT_EQ(impl.HardDeleteComponent(normal), vbTrue);
  EXPECT_EQ(impl.HardDeleteComponent(deleted), vbTrue);
  EXPECT_TRUE(impl.child_indexes_dirty);
  EXPECT_TRUE(impl.prop_indexes_dirty);
  EXPECT_EQ(transport.CountCompChildren(0), 1);
  EXPECT_EQ(transport.GetComponentStatus(deleted), csDeleted);
  EXPECT_EQ(Components(transport), "<TALVEN><COMPONENT><KEPT/></COMPONENT></TALVEN>");

  const AutomationError error = Failure([&] { impl.HardDeleteComponent(normal); });
  EXPECT_EQ(error.description(), "HardDeleteComponent: Object variable or With block variable not set");
  EXPECT_EQ(transport.GetComponentStatus(kept), csNormal);
}

}  // namespace
}  // namespace varnex
