// Copying property values back from a returned document, by position.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::Adopt;
using testing::Components;
using testing::Failure;

std::string Document(const std::string& components) { return "<TALVEN>" + components + "</TALVEN>"; }

std::string Site(const std::string& properties, const std::string& visit_properties) {
  return "<COMPONENT><SITE STATUS=\"MODIFIED\"><PROPERTIES>" + properties +
         "</PROPERTIES><COLLECTION><VISITS><COMPONENT><VISIT><PROPERTIES>" + visit_properties +
         "</PROPERTIES></VISIT></COMPONENT></VISITS></COLLECTION></SITE></COMPONENT>";
}

const std::string kOwnSite = Site(
    "<NAME xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"South\">North</NAME><CODE xml:space=\"preserve\">7</CODE>",
    "<DATE xml:space=\"preserve\">monday</DATE>");
const std::string kOwnRoom = "<COMPONENT><ROOM><PROPERTIES><SIZE>2</SIZE></PROPERTIES></ROOM></COMPONENT>";

class Update : public ::testing::Test {
 protected:
  void SetUp() override { Adopt(transport, Document(kOwnSite + kOwnRoom)); }
  Transport transport;
};

TEST_F(Update, CopiesTextsByPositionAndLeavesMarksAlone) {
  const std::string returned =
      Document(Site("<NAME>East</NAME><CODE STATUS=\"NEW\" ORIGINAL=\"0\">8</CODE>", "<DATE>friday</DATE>") +
               "<COMPONENT><ROOM STATUS=\"DELETED\"><PROPERTIES><SIZE>3</SIZE></PROPERTIES></ROOM></COMPONENT>");
  EXPECT_EQ(transport.UpdateDocument(returned), 1);
  EXPECT_EQ(Components(transport),
            Document(Site("<NAME xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"South\">East</NAME>"
                          "<CODE xml:space=\"preserve\">8</CODE>",
                          "<DATE xml:space=\"preserve\">friday</DATE>") +
                     "<COMPONENT><ROOM><PROPERTIES><SIZE>3</SIZE></PROPERTIES></ROOM></COMPONENT>"));
}

TEST_F(Update, PairsByPositionNeverByName) {
  // Reordered: each value lands on the property at its position. Extra: skipped without a word.
  const std::string returned = Document(
      Site("<CODE>9</CODE><NAME>West</NAME><EXTRA>x</EXTRA>", "<DATE>sunday</DATE><TIME>noon</TIME>") +
      "<COMPONENT><HALL><PROPERTIES><WIDTH>5</WIDTH></PROPERTIES></HALL></COMPONENT>");
  EXPECT_EQ(transport.UpdateDocument(returned), 1);
  EXPECT_EQ(Components(transport),
            Document(Site("<NAME xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"South\">9</NAME>"
                          "<CODE xml:space=\"preserve\">West</CODE>",
                          "<DATE xml:space=\"preserve\">sunday</DATE>") +
                     "<COMPONENT><ROOM><PROPERTIES><SIZE>5</SIZE></PROPERTIES></ROOM></COMPONENT>"));
}

TEST_F(Update, EveryChildNodeTakesAPosition) {
  Transport commented;
  Adopt(commented, Document("<COMPONENT><ROOM><!--note--><PROPERTIES><!--first--><SIZE>2</SIZE><AREA>4</AREA>"
                            "</PROPERTIES></ROOM></COMPONENT>"));
  // The returned PROPERTIES stands first, where the own component has a comment; its children
  // pair with the comment's (none).
  EXPECT_EQ(commented.UpdateDocument(Document("<COMPONENT><ROOM><PROPERTIES><SIZE>3</SIZE></PROPERTIES></ROOM>"
                                              "</COMPONENT>")),
            1);
  EXPECT_EQ(Components(commented),
            Document("<COMPONENT><ROOM><!--note--><PROPERTIES><!--first--><SIZE>2</SIZE><AREA>4</AREA>"
                     "</PROPERTIES></ROOM></COMPONENT>"));
  // Aligned lists: the comment takes the first value, the properties the next ones.
  EXPECT_EQ(commented.UpdateDocument(Document("<COMPONENT><ROOM><X/><PROPERTIES><SIZE>3</SIZE><AREA>6</AREA>"
                                              "<DEPTH>1</DEPTH></PROPERTIES></ROOM></COMPONENT>")),
            1);
  EXPECT_EQ(Components(commented),
            Document("<COMPONENT><ROOM><!--note--><PROPERTIES><!--3--><SIZE>6</SIZE><AREA>1</AREA>"
                     "</PROPERTIES></ROOM></COMPONENT>"));
}

TEST_F(Update, TextThatDoesNotParseChangesNothing) {
  const std::string before = Components(transport);
  EXPECT_EQ(transport.UpdateDocument("<TALVEN><COMPONENT>"), 1);
  EXPECT_EQ(transport.UpdateDocument("<OTHER><COMPONENT><SITE/></COMPONENT></OTHER>"), 1);
  EXPECT_EQ(Components(transport), before);
}

TEST_F(Update, MissingOwnComponentsFailAfterEarlierValuesWereCopied) {
  const std::string room = "<COMPONENT><ROOM><PROPERTIES><SIZE>3</SIZE></PROPERTIES></ROOM></COMPONENT>";
  const AutomationError top = Failure([&] {
    transport.UpdateDocument(Document(Site("<NAME>East</NAME>", "<DATE>friday</DATE>") + room + room));
  });
  EXPECT_EQ(top.number(), errObjectNotSet);
  EXPECT_EQ(top.description(), "UpdateDocument: Object variable or With block variable not set");
  EXPECT_NE(Components(transport).find("<SIZE>3</SIZE>"), std::string::npos);

  // A second visit where the own collection has one: two levels deep.
  const std::string visits = "<COMPONENT><VISIT><PROPERTIES><DATE>tuesday</DATE></PROPERTIES></VISIT></COMPONENT>";
  const AutomationError nested = Failure([&] {
    transport.UpdateDocument(Document("<COMPONENT><SITE><PROPERTIES><NAME>West</NAME></PROPERTIES><COLLECTION>"
                                      "<VISITS>" + visits + visits + "</VISITS></COLLECTION></SITE></COMPONENT>"));
  });
  EXPECT_EQ(nested.number(), errObjectNotSet);
  EXPECT_EQ(nested.description(),
            "UpdateDocument: RecurseCopyProperties: RecurseCopyProperties: "
            "Object variable or With block variable not set");
  const std::string after = Components(transport);
  EXPECT_NE(after.find(">West</NAME>"), std::string::npos);
  EXPECT_NE(after.find(">tuesday</DATE>"), std::string::npos);

  // A returned wrapper without a component fails one level further down.
  const AutomationError empty = Failure([&] {
    transport.UpdateDocument(Document("<COMPONENT><SITE><X/><COLLECTION/></SITE></COMPONENT>"));
  });
  EXPECT_EQ(empty.description(),
            "UpdateDocument: RecurseCopyProperties: RecurseCopyProperties: "
            "Object variable or With block variable not set");
}

TEST(UpdateDocument, TextWrittenOverComponentsKeepsTheirHandlesAnswering) {
  Transport transport;
  const Long site = transport.AddComponent(0, "Site");
  const Long room = transport.AddComponent(site, "Room");
  const Long desk = transport.AddComponent(room, "Desk");
  // The returned PROPERTIES pairs with the own wrapper of ROOM: ROOM's element gets the text.
  EXPECT_EQ(transport.UpdateDocument("<TALVEN><COMPONENT><SITE><PROPERTIES><P>flat</P></PROPERTIES></SITE>"
                                     "</COMPONENT></TALVEN>"),
            1);
  EXPECT_EQ(Components(transport), "<TALVEN><COMPONENT><SITE><COMPONENT><ROOM>flat</ROOM></COMPONENT></SITE>"
                                   "</COMPONENT></TALVEN>");
  std::string name;
  enComponentStatus status = csNew;
  enComponentType type = ctcollection;
  EXPECT_EQ(transport.GetComponent(desk, name, status, type), 1);
  EXPECT_EQ(name, "DESK");
  EXPECT_EQ(status, csNormal);
  EXPECT_EQ(type, ctComponent);
  EXPECT_EQ(transport.DeleteComponent(desk), vbTrue);
  EXPECT_EQ(transport.GetComponentStatus(desk), csDeleted);
}

}  // namespace
}  // namespace varnex
