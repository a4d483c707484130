// Clearing change marks after an exchange.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::Adopt;
using testing::Components;
using testing::ErrorOf;

TEST(ResetStatus, ClearsModifiedCutsOutDeletedLeavesNewAlone) {
  Transport transport;  // S 1, R 2, H 3, X 4, W 5, Y 6, O 7
  Adopt(transport,
        "<COMPONENT><S STATUS=\"MODIFIED\"><PROPERTIES><P STATUS=\"MODIFIED\" ORIGINAL=\"a\">b</P><Q STATUS=\"NEW\"/>"
        "</PROPERTIES><COMPONENT><R><PROPERTIES><P STATUS=\"MODIFIED\" ORIGINAL=\"1\">2</P></PROPERTIES>"
        "<COMPONENT><H STATUS=\" deleted \"><COMPONENT><X/></COMPONENT></H></COMPONENT></R></COMPONENT>"
        "<COMPONENT><W STATUS=\"NEW\"><COMPONENT><Y STATUS=\"MODIFIED\"/></COMPONENT></W></COMPONENT></S></COMPONENT>"
        "<COMPONENT><O STATUS=\"MODIFIED\"/></COMPONENT>");
  EXPECT_EQ(transport.CountCompChildren(2), 1);
  EXPECT_EQ(transport.ResetStatus(), 0);
  EXPECT_EQ(Components(transport),
            "<COMPONENT><S><PROPERTIES><P>b</P><Q/></PROPERTIES><COMPONENT><R><PROPERTIES>"
            "<P STATUS=\"MODIFIED\" ORIGINAL=\"1\">2</P></PROPERTIES></R></COMPONENT><COMPONENT><W STATUS=\"NEW\">"
            "<COMPONENT><Y STATUS=\"MODIFIED\"/></COMPONENT></W></COMPONENT></S></COMPONENT>"
            "<COMPONENT><O STATUS=\"MODIFIED\"/></COMPONENT>");
  // No stale flag: the cut-out H is still counted, until something else marks the index stale.
  EXPECT_EQ(transport.CountCompChildren(2), 1);
  EXPECT_EQ(transport.GetComponentStatus(3), csDeleted);
  transport.AddComponent(5, "Z");
  EXPECT_EQ(transport.CountCompChildren(2), 0);
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
