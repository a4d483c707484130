// Merging received documents: what is copied and how, merging twice, documents that add
// nothing, and failures with their nested descriptions.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

// Every kind of content, with white space between the elements.
constexpr const char* kIncoming = R"(<TALVEN>
  <DOMAIN><COLOUR CODE="C"><ITEM><CODE>R</CODE></ITEM><ITEM/></COLOUR></DOMAIN>
  <PROPERTY_DOMAINS><SHADE>Colour</SHADE></PROPERTY_DOMAINS>
  <COMPONENT><SITE STATUS=" new " ID="7" Kind="x &amp; y">
    <ATTACHMENTS><NOTE persist="TRUE"><P>one</P></NOTE><MEMO>two</MEMO></ATTACHMENTS>
    <PROPERTIES>
      <NAME xml:space="preserve" STATUS="modified" ORIGINAL="South">North</NAME> <CODE xml:space="preserve"> </CODE>
    </PROPERTIES>
    <COLLECTION><VISITS STATUS="DELETED">
      <PROTOTYPE><DAY>Monday</DAY></PROTOTYPE> <COMPONENT><VISIT STATUS="DELETED"/></COMPONENT>
    </VISITS></COLLECTION>
  </SITE></COMPONENT>
</TALVEN>)";

// SITE as merged: statuses rewritten, the collection's dropped, "persist" written "true".
constexpr const char* kSite =
    "<COMPONENT><SITE STATUS=\"NEW\" ID=\"7\" Kind=\"x &amp; y\"><ATTACHMENTS><NOTE persist=\"true\"><P>one</P>"
    "</NOTE><MEMO>two</MEMO></ATTACHMENTS><PROPERTIES><NAME xml:space=\"preserve\" STATUS=\"MODIFIED\" "
    "ORIGINAL=\"South\">North</NAME><CODE xml:space=\"preserve\"> </CODE></PROPERTIES><COLLECTION><VISITS>"
    "<PROTOTYPE><DAY>Monday</DAY></PROTOTYPE><COMPONENT><VISIT STATUS=\"DELETED\"/></COMPONENT></VISITS>"
    "</COLLECTION></SITE></COMPONENT>";
const std::string kSections = "<DOMAIN><COLOUR CODE=\"C\"><ITEM><CODE>R</CODE></ITEM><ITEM/></COLOUR></DOMAIN>"
                              "<PROPERTY_DOMAINS><SHADE>Colour</SHADE></PROPERTY_DOMAINS>";

TEST(Merge, CopiesEveryKindOfContentAndMatchesNothing) {
  Transport transport;
  const Long host = transport.AddComponent(0, "Host");
  EXPECT_EQ(transport.MergeDocument(kIncoming, host), 1);
  EXPECT_EQ(transport.TransportDoc(),
            "<TALVEN>" + kSections + "<COMPONENT><HOST>" + kSite + "</HOST></COMPONENT></TALVEN>");
  EXPECT_EQ(testing::ChildOf(transport, 3, 1), "4 VISIT csDeleted ctComponent");  // handles in document order
  EXPECT_EQ(transport.FindPropDomainByPropName("Shade"), 5);                        // then the link
  EXPECT_EQ(testing::PropertiesOf(transport, 2), "1 NAME=North/South/csModified;2 CODE= //csNormal;");
  EXPECT_EQ(transport.CountDomItems(1), 2);

  // Merged again: the components come twice, the link and the existing domain's items do not.
  EXPECT_EQ(transport.MergeDocument(kIncoming, 0), 1);
  EXPECT_EQ(transport.TransportDoc(),
            "<TALVEN>" + kSections + "<COMPONENT><HOST>" + kSite + "</HOST></COMPONENT>" + kSite + "</TALVEN>");
  EXPECT_EQ(testing::ChildOf(transport, 0, 2), "6 SITE csNew ctComponent");
  EXPECT_EQ(transport.CountPropDomains() * 10 + transport.CountDomItems(1), 12);
}

TEST(Merge, DocumentsThatAddNothingAndWrappersFoundAnywhere) {
  Transport transport;
  transport.RootName("SURVEY");
  const std::string empty = transport.TransportDoc();
  for (const char* text : {kIncoming, "<SURVEY><COMPONENT><A/></COMPONENT>", "", "<SURVEY/><SURVEY/>"}) {
    EXPECT_EQ(transport.MergeDocument(text, 0), 1);
    EXPECT_EQ(transport.TransportDoc(), empty) << text;
  }
  // Wrappers under any element named exactly like the root; a component so named has its
  // wrappers taken twice, and its prototype, moved over the first time, only once.
  transport.MergeDocument("<X><SURVEY><component><B/></component><COMPONENT><SURVEY><COLLECTION><L><PROTOTYPE/>"
                          "</L></COLLECTION></SURVEY></COMPONENT></SURVEY></X>",
                          0);
  EXPECT_EQ(transport.TransportDoc(), "<SURVEY><DOMAIN/><PROPERTY_DOMAINS/><COMPONENT><SURVEY><COLLECTION><L>"
                                      "<PROTOTYPE/></L></COLLECTION></SURVEY></COMPONENT><COLLECTION><L/></COLLECTION>"
                                      "</SURVEY>");
}

TEST(Merge, FailuresNestOnePrefixPerLevelAndKeepWhatWasAdded) {
  const std::string merge = "MergeDocument: MergeTransportIn: ", recurse = "RecurseComponents: ";
  const struct { const char* text; Long number; std::string description; const char* left; } cases[] = {
      {"<TALVEN><COMPONENT><A><COLLECTION><B><COMPONENT/></B></COLLECTION></A></COMPONENT></TALVEN>", errObjectNotSet,
       merge + recurse + recurse + recurse + "Object variable or With block variable not set",
       "<COMPONENT><A><COLLECTION><B/></COLLECTION></A></COMPONENT>"},
      {"<TALVEN><COMPONENT><A><COLLECTION><!--x--><B/></COLLECTION></A></COMPONENT></TALVEN>", errTypeMismatch,
       merge + recurse + "Type mismatch", "<COMPONENT><A/></COMPONENT>"},
  };
  for (const auto& c : cases) {
    Transport transport;
    EXPECT_AUTOMATION_ERROR(transport.MergeDocument(c.text, 0), c.number, c.description);
    EXPECT_EQ(transport.TransportDoc(), std::string("<TALVEN><DOMAIN/><PROPERTY_DOMAINS/>") + c.left + "</TALVEN>");
  }
  Transport transport;
  EXPECT_AUTOMATION_ERROR(transport.MergeDocument("<TALVEN><COMPONENT><A/></COMPONENT></TALVEN>", 9),
                          errObjectRequired, merge + recurse + "AddComponent: Invalid Handle");
}

}  // namespace
}  // namespace varnex
