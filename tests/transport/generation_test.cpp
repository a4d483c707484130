// Giving the document out: whole, reduced to its changes, or without the domain sections.
#include "transport/exchange_fixture.hpp"
#include "transport/root_wrappers.hpp"

namespace varnex {
namespace {

using testing::Adopt;
using testing::Failure;

constexpr const char* kSiteWrapper =
    "<COMPONENT><SITE><PROPERTIES><NAME xml:space=\"preserve\">North</NAME></PROPERTIES>"
    "<COLLECTION><VISITS><PROTOTYPE><DATE>today</DATE></PROTOTYPE>"
    "<COMPONENT><VISIT STATUS=\"MODIFIED\"><PROPERTIES>"
    "<DATE xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"monday\">tuesday</DATE></PROPERTIES></VISIT>"
    "</COMPONENT>"
    "<COMPONENT><VISIT><PROPERTIES><DATE xml:space=\"preserve\">friday</DATE></PROPERTIES></VISIT></COMPONENT>"
    "</VISITS></COLLECTION></SITE></COMPONENT>";
constexpr const char* kArchiveWrapper =
    "<COMPONENT><ARCHIVE><ATTACHMENTS><MAP persist=\"True\"/><SKETCH/><PHOTO persist=\"false\"/></ATTACHMENTS>"
    "</ARCHIVE></COMPONENT>";
constexpr const char* kSpareWrapper =
    "<COMPONENT><SPARE><PROPERTIES><NAME xml:space=\"preserve\">old</NAME></PROPERTIES></SPARE></COMPONENT>";

class Generation : public ::testing::Test {
 protected:
  void SetUp() override {
    Adopt(transport, std::string("<TALVEN>") + kSiteWrapper + kArchiveWrapper + kSpareWrapper + "</TALVEN>");
    Transport::Impl& impl = transport.impl();
    impl.document->AppendElement(impl.domain_section, "COLOURS");
    impl.document->AppendElement(impl.property_domain_section, "SHADE");
  }
  Transport transport;
};

TEST_F(Generation, ShortMediumAndFullOfTheSameDocument) {
  const std::string full = transport.GenerateTransportDoc(tmFull);
  EXPECT_EQ(full, std::string("<TALVEN><DOMAIN><COLOURS/></DOMAIN><PROPERTY_DOMAINS><SHADE/></PROPERTY_DOMAINS>") +
                      kSiteWrapper + kArchiveWrapper + kSpareWrapper + "</TALVEN>");
  EXPECT_EQ(transport.TransportDoc(), full);

  // Every wrapper as it stands, under bare root tags, without the domain sections.
  EXPECT_EQ(transport.GenerateTransportDoc(tmMedium),
            std::string("<TALVEN>") + kSiteWrapper + kArchiveWrapper + kSpareWrapper + "</TALVEN>");

  // The normal leaves VISIT and SPARE go, the prototype and the first non-persistent attachment
  // too; ARCHIVE stays for its persistent attachment, SITE and VISITS for their sub-components.
  EXPECT_EQ(transport.GenerateTransportDoc(tmShort),
            "<TALVEN><COMPONENT><SITE><PROPERTIES><NAME xml:space=\"preserve\">North</NAME></PROPERTIES>"
            "<COLLECTION><VISITS><COMPONENT><VISIT STATUS=\"MODIFIED\"><PROPERTIES>"
            "<DATE xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"monday\">tuesday</DATE></PROPERTIES>"
            "</VISIT></COMPONENT></VISITS></COLLECTION></SITE></COMPONENT>"
            "<COMPONENT><ARCHIVE><ATTACHMENTS><MAP persist=\"True\"/><PHOTO persist=\"false\"/></ATTACHMENTS>"
            "</ARCHIVE></COMPONENT></TALVEN>");

  // Generation never changes the own document.
  EXPECT_EQ(transport.GenerateTransportDoc(tmFull), full);
}

TEST_F(Generation, OtherModesGiveNothing) {
  EXPECT_EQ(transport.GenerateTransportDoc(static_cast<enTransportMode>(3)), "");
  EXPECT_EQ(transport.GenerateTransportDoc(static_cast<enTransportMode>(-1)), "");
}

TEST(GenerateTransportDoc, NewObject) {
  Transport transport;
  EXPECT_EQ(transport.GenerateTransportDoc(tmFull), "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/></TALVEN>");
  EXPECT_EQ(transport.GenerateTransportDoc(tmShort), "<TALVEN></TALVEN>");
  EXPECT_EQ(transport.GenerateTransportDoc(tmMedium), "<TALVEN></TALVEN>");
}

TEST(GenerateTransportDoc, ComponentNamedLikeTheRootHasItsWrappersGivenTwice) {
  Transport transport;
  transport.RootName("SITE");
  const Long site = transport.AddComponent(0, "site");
  transport.AddComponent(site, "Room", csNew);
  transport.AddComponent(site, "Spare");
  const std::string room = "<COMPONENT><ROOM STATUS=\"NEW\"/></COMPONENT>";
  EXPECT_EQ(transport.GenerateTransportDoc(tmMedium),
            "<SITE><COMPONENT><SITE>" + room + "<COMPONENT><SPARE/></COMPONENT></SITE></COMPONENT>" + room +
                "<COMPONENT><SPARE/></COMPONENT></SITE>");
  EXPECT_EQ(transport.GenerateTransportDoc(tmShort), "<SITE><COMPONENT><SITE>" + room + "</SITE></COMPONENT>" + room + "</SITE>");
}

// The reduced forms are those of the document's text loaded afresh, trimmed, its top-level
// wrappers written out: computed here the long way round.
std::string ReloadedShortForm(Transport& transport) {
  pugi::xml_document copy;
  EXPECT_TRUE(xml::LoadText(copy, transport.GenerateTransportDoc(tmFull)));
  pugi::xml_node top = copy.document_element();
  Boolean kill = vbFalse;
  transport.TrimDocument(copy, top, kill);
  std::string text = "<";
  text += transport.RootName();
  text += ">";
  for (pugi::xml_node wrapper : SelectRootWrappers(copy, transport.RootName())) text += xml::Serialize(wrapper);
  return text + "</" + transport.RootName() + ">";
}

TEST(GenerateTransportDoc, ShortFormIsThatOfTheReloadedText) {
  Transport transport;
  Adopt(transport,
        "<TALVEN><COMPONENT><SITE STATUS=\"MODIFIED\" NOTE=\"a &lt;b&gt; &amp; &quot;c&quot;&#9;\"><PROPERTIES>"
        "<NAME xml:space=\"preserve\" STATUS=\"MODIFIED\" ORIGINAL=\"&apos;old&apos;&#10;\">new &amp; &lt;x&gt;</NAME>"
        "</PROPERTIES>"
        "<ATTACHMENTS><!--first--><MAP persist=\"true\"><![CDATA[raw <data>]]><?mark here?></MAP></ATTACHMENTS>"
        "<COLLECTION><VISITS><PROTOTYPE><DATE>today</DATE></PROTOTYPE>"
        "<COMPONENT><VISIT/></COMPONENT><COMPONENT><VISIT/></COMPONENT></VISITS></COLLECTION>"
        "<COMPONENT><TALVEN><COMPONENT><ROOM STATUS=\"NEW\"/></COMPONENT><COMPONENT><SPARE/></COMPONENT>"
        "</TALVEN></COMPONENT></SITE></COMPONENT>"
        "<COMPONENT><LEAF/></COMPONENT><COLLECTION><EMPTY/></COLLECTION></TALVEN>");
  const std::string reference = ReloadedShortForm(transport);
  // The text is written from the own document, where a removed component is never read: not even
  // a name that would keep the document's text from loading is noticed there (LEAF, handle 8).
  transport.impl().NodeOf(8).append_attribute("1st").set_value("x");
  const std::string shortened = transport.GenerateTransportDoc(tmShort);
  EXPECT_EQ(shortened, reference);
  // The comment went as the first non-persistent attachment; VISITS lost all of its members.
  EXPECT_NE(shortened.find("<ATTACHMENTS><MAP persist=\"true\">"), std::string::npos);
  EXPECT_NE(shortened.find("<VISITS/>"), std::string::npos);
}

// What loading changes shows in the reduced forms: CR line ends, blank-only text.
TEST(GenerateTransportDoc, LoadingRulesShowInTheReducedForms) {
  Transport transport;
  const Long site = transport.AddComponent(0, "Site", csModified);
  testing::AddProperty(transport, site, "NOTE", "one\r\ntwo\rthree");
  const std::string full = transport.GenerateTransportDoc(tmFull);
  EXPECT_NE(full.find("one\r\ntwo\rthree"), std::string::npos);
  const std::string reloaded =
      "<TALVEN><COMPONENT><SITE STATUS=\"MODIFIED\"><PROPERTIES><NOTE xml:space=\"preserve\">one\ntwo\nthree</NOTE>"
      "</PROPERTIES></SITE></COMPONENT></TALVEN>";
  EXPECT_EQ(transport.GenerateTransportDoc(tmMedium), reloaded);
  EXPECT_EQ(transport.GenerateTransportDoc(tmShort), reloaded);

  // Blank-only text stays inside xml:space="preserve" and goes outside it; a processing
  // instruction keeps its CR.
  testing::AddProperty(transport, site, "BLANK", "   ");
  pugi::xml_node element = transport.impl().NodeOf(site);
  transport.impl().document->SetText(element.append_child("LOOSE"), "  ");
  element.append_child(pugi::node_pi).set_name("mark");
  element.last_child().set_value("a\r\nb");
  const std::string kept =
      "<TALVEN><COMPONENT><SITE STATUS=\"MODIFIED\"><PROPERTIES><NOTE xml:space=\"preserve\">one\ntwo\nthree</NOTE>"
      "<BLANK xml:space=\"preserve\">   </BLANK></PROPERTIES><LOOSE/><?mark a\r\nb?></SITE></COMPONENT></TALVEN>";
  EXPECT_EQ(transport.GenerateTransportDoc(tmMedium), kept);
  EXPECT_EQ(transport.GenerateTransportDoc(tmShort), kept);
  EXPECT_NE(transport.GenerateTransportDoc(tmFull).find("<LOOSE>  </LOOSE>"), std::string::npos);
}

TEST(GenerateTransportDoc, FailuresWhenTheDocumentDoesNotLoad) {
  Transport transport;
  // A rename to a name XPath takes but the document refuses leaves an empty document.
  EXPECT_EQ(Failure([&] { transport.RootName("a\xC3\x97"); }).number(), errXml);
  EXPECT_EQ(transport.GenerateTransportDoc(tmFull), "");

  const AutomationError shortened = Failure([&] { transport.GenerateTransportDoc(tmShort); });
  EXPECT_EQ(shortened.number(), errObjectNotSet);
  EXPECT_EQ(shortened.description(),
            "GenerateTransportDoc: GetModifiedXML: TrimDocument: Object variable or With block variable not set");

  const AutomationError medium = Failure([&] { transport.GenerateTransportDoc(tmMedium); });
  EXPECT_EQ(medium.number(), errInvalidProcedureCall);
  EXPECT_EQ(medium.source(), "Varnex");
  EXPECT_EQ(medium.description(), "GenerateTransportDoc: GetModifiedXML2: Invalid procedure call or argument");
}

TEST(GenerateTransportDoc, FailuresInsideTheReductionNestPerLevel) {
  Transport transport;
  const Long site = transport.AddComponent(0, "Site");
  const Long visits = transport.AddCollection(site, "Visits");
  EXPECT_EQ(Failure([&] { transport.AddComponent(visits, "no good"); }).number(), errXml);

  const AutomationError error = Failure([&] { transport.GenerateTransportDoc(tmShort); });
  EXPECT_EQ(error.number(), errObjectNotSet);
  EXPECT_EQ(error.description(),
            "GenerateTransportDoc: GetModifiedXML: TrimDocument: TrimDocument: TrimDocument: TrimDocument: "
            "Object variable or With block variable not set");
  // The medium form does not trim, and keeps the empty wrapper.
  EXPECT_EQ(transport.GenerateTransportDoc(tmMedium),
            "<TALVEN><COMPONENT><SITE><COLLECTION><VISITS><COMPONENT/></VISITS></COLLECTION></SITE></COMPONENT>"
            "</TALVEN>");
}

TEST(GenerateTransportDoc, RootNameThatDoesNotCompileAsXPath) {
  Transport transport;
  // A failed rename leaves an empty document under an empty name.
  EXPECT_FALSE(Failure([&] { transport.RootName(""); }).description().empty());
  EXPECT_EQ(transport.GenerateTransportDoc(tmFull), "");
  const AutomationError shortened = Failure([&] { transport.GenerateTransportDoc(tmShort); });
  EXPECT_EQ(shortened.number(), errXml);
  EXPECT_EQ(shortened.description().rfind("GenerateTransportDoc: GetModifiedXML: XPath error", 0), 0u);
  const AutomationError medium = Failure([&] { transport.GenerateTransportDoc(tmMedium); });
  EXPECT_EQ(medium.number(), errInvalidProcedureCall);
}

}  // namespace
}  // namespace varnex
