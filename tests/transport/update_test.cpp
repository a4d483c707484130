// Copying property values back from a returned document, by position.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::Adopt;
using testing::Components;

constexpr const char* kOwn =
    "<COMPONENT><S STATUS=\"MODIFIED\"><PROPERTIES><A STATUS=\"MODIFIED\" ORIGINAL=\"0\">1</A><!--c--><B>2</B>"
    "</PROPERTIES><COLLECTION><V><COMPONENT><W><PROPERTIES><C>3</C></PROPERTIES></W></COMPONENT></V></COLLECTION>"
    "</S></COMPONENT><COMPONENT><T><PROPERTIES><D>4</D></PROPERTIES></T></COMPONENT>";

TEST(UpdateDocument, CopiesTextsByPositionOnlyAndFailsPastTheOwnComponents) {
  Transport transport;
  Adopt(transport, kOwn);
  // Reordered, an extra one, statuses that are not copied, a returned component named otherwise;
  // the comment takes a position like any node.
  EXPECT_EQ(transport.UpdateDocument(
                "<TALVEN><COMPONENT><S><PROPERTIES><B STATUS=\"NEW\">x</B><A>y</A><Z>z</Z><X>extra</X></PROPERTIES>"
                "<COLLECTION><V><COMPONENT><W><PROPERTIES><C>w</C></PROPERTIES></W></COMPONENT></V></COLLECTION></S>"
                "</COMPONENT><COMPONENT><OTHER><PROPERTIES><E>t</E></PROPERTIES></OTHER></COMPONENT></TALVEN>"),
            1);
  EXPECT_EQ(Components(transport),
            "<COMPONENT><S STATUS=\"MODIFIED\"><PROPERTIES><A STATUS=\"MODIFIED\" ORIGINAL=\"0\">x</A><!--y--><B>z</B>"
            "</PROPERTIES><COLLECTION><V><COMPONENT><W><PROPERTIES><C>w</C></PROPERTIES></W></COMPONENT></V>"
            "</COLLECTION></S></COMPONENT><COMPONENT><T><PROPERTIES><D>t</D></PROPERTIES></T></COMPONENT>");
  // Text that does not parse, or another root, changes nothing.
  EXPECT_EQ(transport.UpdateDocument("<TALVEN><COMPONENT>"), 1);
  EXPECT_EQ(transport.UpdateDocument("<X><COMPONENT><S><PROPERTIES><A>q</A></PROPERTIES></S></COMPONENT></X>"), 1);
  EXPECT_EQ(Components(transport).find(">q<"), std::string::npos);

  // Returned components beyond the own ones fail, after the values before them were copied.
  const std::string t = "<COMPONENT><T><PROPERTIES><D>5</D></PROPERTIES></T></COMPONENT>";
  EXPECT_AUTOMATION_ERROR(transport.UpdateDocument("<TALVEN>" + t + t + t + "</TALVEN>"), errObjectNotSet,
                          "UpdateDocument: Object variable or With block variable not set");
  const std::string w = "<COMPONENT><W><PROPERTIES><C>6</C></PROPERTIES></W></COMPONENT>";
  EXPECT_AUTOMATION_ERROR(transport.UpdateDocument("<TALVEN><COMPONENT><S><P/><COLLECTION><V>" + w + w +
                                                   "</V></COLLECTION></S></COMPONENT></TALVEN>"),
                          errObjectNotSet,
                          "UpdateDocument: RecurseCopyProperties: RecurseCopyProperties: "
                          "Object variable or With block variable not set");
  EXPECT_NE(Components(transport).find("<C>6</C>"), std::string::npos);
  EXPECT_NE(Components(transport).find("<D>5</D>"), std::string::npos);
  // Properties returned for an own wrapper left empty by a failed addition.
  Transport empty;
  EXPECT_THROW(empty.AddComponent(0, ""), AutomationError);
  EXPECT_AUTOMATION_ERROR(empty.UpdateDocument("<TALVEN>" + t + "</TALVEN>"), errObjectNotSet,
                          "UpdateDocument: RecurseCopyProperties: Object variable or With block variable not set");
}

TEST(UpdateDocument, TextWrittenOverAComponentKeepsItsChildrenAnswering) {
  Transport transport;
  const Long room = transport.AddComponent(transport.AddComponent(0, "Site"), "Room");
  const Long desk = transport.AddComponent(room, "Desk");
  // The returned properties pair with the own wrapper of ROOM: ROOM gets the text.
  transport.UpdateDocument("<TALVEN><COMPONENT><SITE><PROPERTIES><P>flat</P></PROPERTIES></SITE></COMPONENT>"
                           "</TALVEN>");
  EXPECT_EQ(Components(transport), "<COMPONENT><SITE><COMPONENT><ROOM>flat</ROOM></COMPONENT></SITE></COMPONENT>");
  EXPECT_EQ(transport.DeleteComponent(desk), vbTrue);
  EXPECT_EQ(transport.GetComponentStatus(desk), csDeleted);
}

}  // namespace
}  // namespace varnex
