// Merging received documents: what is copied and how, merging twice, documents that add
// nothing, failures with their nested descriptions, and very deep documents.
#include <string>

#include <gtest/gtest.h>

#include "support/errors.hpp"
#include "varnex/varnex.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

constexpr const char* kEmpty = "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/></TALVEN>";

// Every kind of content, laid out with white space between the elements.
constexpr const char* kIncoming = R"(<TALVEN>
  <DOMAIN>
    <COLOUR CODE="C" DESC="Colours"><ITEM><CODE>R</CODE><NAME>Red</NAME></ITEM><ITEM/></COLOUR>
    <SIZE/>
  </DOMAIN>
  <PROPERTY_DOMAINS><SHADE>Colour</SHADE></PROPERTY_DOMAINS>
  <COMPONENT>
    <SITE STATUS=" new " ID="7" Kind="x &amp; y">
      <ATTACHMENTS><NOTE persist="TRUE"><P>one</P></NOTE><MEMO>two</MEMO></ATTACHMENTS>
      <PROPERTIES>
        <NAME xml:space="preserve" STATUS="modified" ORIGINAL="South">North</NAME>
        <CODE xml:space="preserve"> </CODE>
      </PROPERTIES>
      <COLLECTION>
        <VISITS STATUS="DELETED">
          <PROTOTYPE><DAY>Monday</DAY></PROTOTYPE>
          <COMPONENT><VISIT STATUS="DELETED"/></COMPONENT>
        </VISITS>
      </COLLECTION>
    </SITE>
  </COMPONENT>
</TALVEN>)";

// The incoming SITE as merged: statuses rewritten, a collection's status dropped, "persist"
// written as "true".
constexpr const char* kSiteMerged =
    "<COMPONENT><SITE STATUS=\"NEW\" ID=\"7\" Kind=\"x &amp; y\">"
    "<ATTACHMENTS><NOTE persist=\"true\"><P>one</P></NOTE><MEMO>two</MEMO></ATTACHMENTS>"
    "<PROPERTIES><NAME xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"South\">North</NAME>"
    "<CODE xml:space=\"preserve\"> </CODE></PROPERTIES>"
    "<COLLECTION><VISITS><PROTOTYPE><DAY>Monday</DAY></PROTOTYPE>"
    "<COMPONENT><VISIT STATUS=\"DELETED\"/></COMPONENT></VISITS></COLLECTION></SITE></COMPONENT>";

std::string Repeat(const std::string& text, int times) {
  std::string out;
  for (int i = 0; i < times; ++i) out += text;
  return out;
}

TEST(Merge, CopiesEveryKindOfContent) {
  Transport transport;
  const Long host = transport.AddComponent(0, "Host");
  EXPECT_EQ(transport.MergeDocument(kIncoming, host), 1);
  EXPECT_EQ(transport.TransportDoc(),
            std::string("<TALVEN><DOMAIN><COLOUR CODE=\"C\" DESC=\"Colours\"><ITEM><CODE>R</CODE>"
                        "<NAME>Red</NAME></ITEM><ITEM/></COLOUR><SIZE/></DOMAIN>"
                        "<PROPERTY_DOMAINS><SHADE>Colour</SHADE></PROPERTY_DOMAINS><COMPONENT><HOST>") +
                kSiteMerged + "</HOST></COMPONENT></TALVEN>");

  // Fresh handles in document order, then the link; the nodes answer through the indexes.
  std::string name;
  enComponentStatus status = csNormal;
  enComponentType type = ctComponent;
  EXPECT_EQ(transport.GetCompChild(host, 1, name, status, type), 2);
  EXPECT_EQ(name, "SITE");
  EXPECT_EQ(status, csNew);
  EXPECT_EQ(transport.GetCompChild(2, 1, name, status, type), 3);
  EXPECT_EQ(type, ctcollection);
  EXPECT_EQ(status, csNormal);
  EXPECT_EQ(transport.CountCompChildren(3, vbTrue), 0);
  EXPECT_EQ(transport.GetCompChild(3, 1, name, status, type), 4);
  EXPECT_EQ(status, csDeleted);
  EXPECT_EQ(transport.FindPropDomainByPropName("Shade"), 5);
  EXPECT_EQ(transport.AddComponent(0, "Next"), 6);

  std::string value, original;
  EXPECT_EQ(transport.CountCompProperties(2), 2);
  EXPECT_EQ(transport.GetCompProperty(2, 1, value, status, original), "NAME");
  EXPECT_EQ(value, "North");
  EXPECT_EQ(status, csModified);
  EXPECT_EQ(original, "South");
  EXPECT_EQ(transport.GetCompProperty(2, 2, value, status, original), "CODE");
  EXPECT_EQ(value, " ");

  EXPECT_EQ(transport.CountDomains(), 2);
  EXPECT_EQ(transport.CountDomItems(1), 2);
  EXPECT_EQ(transport.CountDomItemProperties(1, 1), 2);
  EXPECT_EQ(transport.FindDomItemPropByName(1, 1, "name"), 2);
  EXPECT_EQ(transport.CountDomItems(2), 0);
}

TEST(Merge, MergingTwiceAddsComponentsTwiceButNotLinksOrDomainItems) {
  Transport transport;
  EXPECT_EQ(transport.MergeDocument(kIncoming, 0), 1);
  const std::string once = transport.TransportDoc();
  EXPECT_EQ(transport.MergeDocument(kIncoming, 0), 1);
  EXPECT_EQ(transport.CountCompChildren(0), 2);
  EXPECT_EQ(transport.CountPropDomains(), 1);
  EXPECT_EQ(transport.CountDomains(), 2);
  EXPECT_EQ(transport.CountDomItems(1), 2);  // the existing domain took nothing
  EXPECT_EQ(transport.TransportDoc(), once.substr(0, once.size() - std::string("</TALVEN>").size()) +
                                          kSiteMerged + "</TALVEN>");
  // The second copy has handles of its own: 5, 6, 7 (4 went to the link the first time).
  std::string name;
  enComponentStatus status = csNormal;
  enComponentType type = ctComponent;
  EXPECT_EQ(transport.GetCompChild(0, 2, name, status, type), 5);
  EXPECT_EQ(transport.GetCompChild(6, 1, name, status, type), 7);
  EXPECT_EQ(name, "VISIT");
}

TEST(Merge, ExistingDomainsTakeNoItemsNewOnesTakeAll) {
  Transport transport;
  transport.AddDomain("Colour");
  transport.FindDomainByName("Size");  // leaves the name taken
  transport.MergeDocument(
      "<TALVEN><DOMAIN><COLOUR><ITEM><A>1</A></ITEM></COLOUR><SIZE CODE=\"s\"><ITEM/></SIZE>"
      "<SHAPE DESC=\"d\"><ITEM><A>x</A><B>y</B></ITEM><ITEM><A>z</A></ITEM></SHAPE></DOMAIN></TALVEN>",
      0);
  EXPECT_EQ(transport.CountDomains(), 2);
  EXPECT_EQ(transport.CountDomItems(1), 0);
  EXPECT_EQ(transport.FindDomainByName("Shape"), 2);
  EXPECT_EQ(transport.CountDomItems(2), 2);
  EXPECT_EQ(transport.CountDomItemProperties(2, 1), 2);
  std::string code, desc, value;
  EXPECT_EQ(transport.GetDomain(2, code, desc), "SHAPE");
  EXPECT_EQ(desc, "d");
  EXPECT_EQ(transport.GetDomItemProperty(2, 2, 1, value), "A");
  EXPECT_EQ(value, "z");
}

TEST(Merge, DocumentsThatAddNothing) {
  Transport transport;
  transport.RootName("SURVEY");
  const Long host = transport.AddComponent(0, "Host");
  const std::string before = transport.TransportDoc();
  // A root named otherwise, text that does not parse, no text at all.
  for (const char* text : {kIncoming, "<SURVEY><COMPONENT><A/></COMPONENT>", "not xml", "",
                           "<SURVEY/><SURVEY/>", "<survey><COMPONENT><A/></COMPONENT></survey>"}) {
    EXPECT_EQ(transport.MergeDocument(text, host), 1) << text;
    EXPECT_EQ(transport.TransportDoc(), before) << text;
  }
  // Wrappers are taken from under any element named like the root, wherever it stands; the
  // wrapper names themselves are matched exactly.
  transport.MergeDocument("<OTHER><X><SURVEY><COMPONENT><A/></COMPONENT><component><B/></component>"
                          "<COLLECTION><C/></COLLECTION></SURVEY></X></OTHER>",
                          host);
  EXPECT_EQ(transport.TransportDoc(), "<SURVEY><DOMAIN/><PROPERTY_DOMAINS/><COMPONENT><HOST><COMPONENT><A/>"
                                      "</COMPONENT><COLLECTION><C/></COLLECTION></HOST></COMPONENT></SURVEY>");
}

TEST(Merge, AComponentNamedLikeTheRootHasItsWrappersTakenTwice) {
  Transport transport;
  transport.MergeDocument(
      "<TALVEN><COMPONENT><TALVEN><COMPONENT><CHILD><PROPERTIES><P>v</P></PROPERTIES></CHILD></COMPONENT>"
      "<COLLECTION><LIST><PROTOTYPE><D>1</D></PROTOTYPE></LIST></COLLECTION></TALVEN></COMPONENT></TALVEN>",
      0);
  // The prototype moved over with the first copy; the second copy finds none.
  EXPECT_EQ(transport.TransportDoc(),
            "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/><COMPONENT><TALVEN><COMPONENT><CHILD><PROPERTIES>"
            "<P xml:space=\"preserve\">v</P></PROPERTIES></CHILD></COMPONENT><COLLECTION><LIST><PROTOTYPE>"
            "<D>1</D></PROTOTYPE></LIST></COLLECTION></TALVEN></COMPONENT><COMPONENT><CHILD><PROPERTIES>"
            "<P xml:space=\"preserve\">v</P></PROPERTIES></CHILD></COMPONENT><COLLECTION><LIST/></COLLECTION>"
            "</TALVEN>");
}

TEST(Merge, FailuresNestOnePrefixPerLevelAndKeepWhatWasAdded) {
  const std::string merge = "MergeDocument: MergeTransportIn: ";
  const std::string recurse = "RecurseComponents: ";
  struct Case {
    const char* text;
    Long parent;
    Long number;
    std::string description;
    const char* left;  // what the failed merge left behind
  };
  const Case cases[] = {
      {"<TALVEN><COMPONENT><A/></COMPONENT></TALVEN>", 99, errObjectRequired,
       merge + recurse + "AddComponent: Invalid Handle", ""},
      {"<TALVEN><COMPONENT><A><COLLECTION><B><COMPONENT/></B></COLLECTION></A></COMPONENT></TALVEN>", 0,
       errObjectNotSet, merge + Repeat(recurse, 3) + "Object variable or With block variable not set",
       "<COMPONENT><A><COLLECTION><B/></COLLECTION></A></COMPONENT>"},
      {"<TALVEN><COMPONENT><A><COLLECTION><!--x--><B/></COLLECTION></A></COMPONENT></TALVEN>", 0,
       errTypeMismatch, merge + recurse + "Type mismatch", "<COMPONENT><A/></COMPONENT>"},
      {"<TALVEN><COMPONENT><A/></COMPONENT><COMPONENT>text<B/></COMPONENT></TALVEN>", 0, errTypeMismatch,
       merge + "Type mismatch", "<COMPONENT><A/></COMPONENT>"},
      {"<TALVEN><COMPONENT><A><ATTACHMENTS>loose text</ATTACHMENTS></A></COMPONENT></TALVEN>", 0, errClass,
       merge + recurse + "AddCompAttachment: Invalid XML supplied.", "<COMPONENT><A><ATTACHMENTS/></A></COMPONENT>"},
      {"<TALVEN><PROPERTY_DOMAINS>text</PROPERTY_DOMAINS><DOMAIN><D/></DOMAIN><COMPONENT><A/></COMPONENT></TALVEN>",
       0, errXml, "", "<COMPONENT><A/></COMPONENT>"},
  };
  for (const Case& c : cases) {
    Transport transport;
    const auto error = ErrorOf([&] { transport.MergeDocument(c.text, c.parent); });
    EXPECT_EQ(error.number(), c.number) << c.text;
    if (c.description.empty()) {
      EXPECT_EQ(error.description().rfind(merge + "AddPropDomain: ", 0), 0u) << error.description();
    } else {
      EXPECT_EQ(error.description(), c.description) << c.text;
    }
    EXPECT_EQ(transport.TransportDoc(), std::string("<TALVEN><DOMAIN/><PROPERTY_DOMAINS/>") + c.left + "</TALVEN>")
        << c.text;
  }
}

TEST(Merge, DeepDocumentsMergeWithoutRecursion) {
  constexpr int kDepth = 100000;
  std::string body;
  for (int i = 0; i < kDepth; ++i) body += "<COMPONENT><C>";
  std::string tail;
  for (int i = 0; i < kDepth; ++i) tail += "</C></COMPONENT>";

  Transport transport;
  const std::string text = "<TALVEN>" + body + "<PROPERTIES><P>deep</P></PROPERTIES>" + tail + "</TALVEN>";
  EXPECT_EQ(transport.MergeDocument(text, 0), 1);
  std::string name, value, original;
  enComponentStatus status = csNormal;
  enComponentType type = ctComponent;
  EXPECT_EQ(transport.GetCompChild(kDepth - 1, 1, name, status, type), kDepth);
  EXPECT_EQ(transport.GetCompProperty(kDepth, 1, value, status, original), "P");
  EXPECT_EQ(value, "deep");
  EXPECT_EQ(transport.TransportDoc(), "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/>" + body +
                                          "<PROPERTIES><P xml:space=\"preserve\">deep</P></PROPERTIES>" + tail +
                                          "</TALVEN>");

  // A failure at the bottom carries one prefix per level.
  Transport failing;
  EXPECT_AUTOMATION_ERROR(failing.MergeDocument("<TALVEN>" + body + "<COMPONENT/>" + tail + "</TALVEN>", 0),
                          errObjectNotSet,
                          "MergeDocument: MergeTransportIn: " + Repeat("RecurseComponents: ", kDepth + 1) +
                              "Object variable or With block variable not set");
}

}  // namespace
}  // namespace varnex
