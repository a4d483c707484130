// Giving the document out: whole, reduced to its changes, or without the domain sections; the
// reduction rule of TrimDocument and TrimDocument2 on documents of the caller's own; and the
// memory budget of the reduced forms, which count every wrapper they take as
// "<COMPONENT></COMPONENT>" (23 bytes), whatever text it really takes.
#include "transport/exchange_fixture.hpp"
#include "transport/root_wrappers.hpp"

namespace varnex {
namespace {

using testing::Adopt;
using testing::ErrorOf;

TEST(GenerateTransportDoc, FullMediumAndShortOfTheSameDocument) {
  Transport transport;
  EXPECT_EQ(transport.GenerateTransportDoc(tmShort) + transport.GenerateTransportDoc(tmMedium),
            "<TALVEN></TALVEN><TALVEN></TALVEN>");
  EXPECT_EQ(transport.GenerateTransportDoc(tmFull), "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/></TALVEN>");
  const std::string site = "<COMPONENT><S><PROPERTIES><P>1</P></PROPERTIES><COLLECTION><V><PROTOTYPE/><COMPONENT>"
                           "<W STATUS=\"MODIFIED\"/></COMPONENT><COMPONENT><W/></COMPONENT></V></COLLECTION></S>"
                           "</COMPONENT>";
  const std::string archive = "<COMPONENT><A><ATTACHMENTS><M persist=\"True\"/><N/><O/></ATTACHMENTS></A></COMPONENT>";
  const std::string spare = "<COMPONENT><X><PROPERTIES><P>2</P></PROPERTIES></X></COMPONENT>";
  Adopt(transport, site + archive + spare);
  testing::Internals(transport).document->AppendElement(testing::Internals(transport).domain_section, "COLOURS");
  const std::string full = transport.GenerateTransportDoc(tmFull);
  EXPECT_EQ(full, "<TALVEN><DOMAIN><COLOURS/></DOMAIN><PROPERTY_DOMAINS/>" + site + archive + spare + "</TALVEN>");
  EXPECT_EQ(transport.GenerateTransportDoc(tmMedium), "<TALVEN>" + site + archive + spare + "</TALVEN>");
  // The normal leaves W and X go, with the prototype and the first non-persistent attachment.
  EXPECT_EQ(transport.GenerateTransportDoc(tmShort),
            "<TALVEN><COMPONENT><S><PROPERTIES><P>1</P></PROPERTIES><COLLECTION><V><COMPONENT><W STATUS=\"MODIFIED\"/>"
            "</COMPONENT></V></COLLECTION></S></COMPONENT><COMPONENT><A><ATTACHMENTS><M persist=\"True\"/><O/>"
            "</ATTACHMENTS></A></COMPONENT></TALVEN>");
  EXPECT_EQ(transport.GenerateTransportDoc(tmFull), full);
  EXPECT_EQ(transport.GenerateTransportDoc(static_cast<enTransportMode>(3)), "");
}

// The short form is that of the document's text loaded afresh and trimmed, done here the long way.
TEST(GenerateTransportDoc, ShortFormIsThatOfTheReloadedText) {
  Transport transport;  // S 1, V 2, W 3, W 4, TALVEN 5, R 6, X 7, L 8, E 9
  Adopt(transport,
        "<COMPONENT><S STATUS=\"MODIFIED\" NOTE=\"a &lt;b&gt; &amp; &quot;c&quot;&#9;\"><PROPERTIES>"
        "<P STATUS=\"MODIFIED\" ORIGINAL=\"&apos;o&apos;&#10;\">n &amp; &lt;x&gt;</P></PROPERTIES><ATTACHMENTS>"
        "<!--c--><M persist=\"true\"><![CDATA[raw <d>]]><?pi x?></M></ATTACHMENTS><COLLECTION><V><PROTOTYPE/>"
        "<COMPONENT><W/></COMPONENT><COMPONENT><W/></COMPONENT></V></COLLECTION><COMPONENT><TALVEN><COMPONENT>"
        "<R STATUS=\"NEW\"/></COMPONENT><COMPONENT><X/></COMPONENT></TALVEN></COMPONENT></S></COMPONENT>"
        "<COMPONENT><L/></COMPONENT><COLLECTION><E/></COLLECTION>");
  pugi::xml_document copy;
  ASSERT_TRUE(xml::LoadText(copy, transport.GenerateTransportDoc(tmFull)));
  pugi::xml_node top = copy.document_element();
  Boolean kill = vbFalse;
  transport.TrimDocument(copy, top, kill);
  std::string reference = "<TALVEN>";
  for (pugi::xml_node wrapper : SelectRootWrappers(copy, "TALVEN")) reference += xml::Serialize(wrapper);
  reference += "</TALVEN>";
  // Written from the own document, where a removed component is not even read: a name that
  // would keep the document's text from loading goes unnoticed there.
  testing::Internals(transport).NodeOf(8).append_attribute("1st").set_value("x");
  const std::string shortened = transport.GenerateTransportDoc(tmShort);
  EXPECT_EQ(shortened, reference);
  EXPECT_NE(shortened.find("<ATTACHMENTS><M persist=\"true\">"), std::string::npos);
  EXPECT_NE(shortened.find("<V/>"), std::string::npos);
  // A component named like the root has its wrappers given a second time.
  EXPECT_EQ(testing::Occurrences(shortened, "<R STATUS=\"NEW\"/>"), 2u);
}

// What loading changes shows in the reduced forms: CR line ends, blank-only text.
TEST(GenerateTransportDoc, LoadingRulesShowInTheReducedForms) {
  Transport transport;
  const Long site = transport.AddComponent(0, "S", csModified);
  transport.AddCompProperty(site, "P", "1\r\n2\r3");
  const std::string reloaded = "<TALVEN><COMPONENT><S STATUS=\"MODIFIED\"><PROPERTIES><P xml:space=\"preserve\">"
                               "1\n2\n3</P></PROPERTIES></S></COMPONENT></TALVEN>";
  EXPECT_EQ(transport.GenerateTransportDoc(tmMedium) + transport.GenerateTransportDoc(tmShort), reloaded + reloaded);
  // A processing instruction keeps its CR...
  pugi::xml_node element = testing::Internals(transport).NodeOf(site);
  pugi::xml_node pi = element.append_child(pugi::node_pi);
  pi.set_name("pi");
  pi.set_value("a\r\nb");
  const std::string with_pi = reloaded.substr(0, reloaded.find("</S>")) + "<?pi a\r\nb?></S></COMPONENT></TALVEN>";
  EXPECT_EQ(transport.GenerateTransportDoc(tmMedium) + transport.GenerateTransportDoc(tmShort), with_pi + with_pi);
  // ... and blank text stays under xml:space="preserve" only.
  testing::Internals(transport).NodeOf(site).remove_child(pi);
  transport.AddCompProperty(site, "Q", "  ");
  testing::Internals(transport).document->SetText(element.append_child("LOOSE"), " ");
  EXPECT_NE(transport.GenerateTransportDoc(tmFull).find("<LOOSE> </LOOSE>"), std::string::npos);
  const std::string loose = reloaded.substr(0, reloaded.find("</PROPERTIES>")) +
                            "<Q xml:space=\"preserve\">  </Q></PROPERTIES><LOOSE/></S></COMPONENT></TALVEN>";
  EXPECT_EQ(transport.GenerateTransportDoc(tmMedium) + transport.GenerateTransportDoc(tmShort), loose + loose);
}

TEST(GenerateTransportDoc, Failures) {
  Transport transport;
  const Long site = transport.AddComponent(0, "Site");
  const Long visits = transport.AddCollection(site, "Visits");
  // A failed addition leaves an empty wrapper.
  EXPECT_EQ(ErrorOf([&] { transport.AddComponent(visits, "no good"); }).number(), errXml);
  EXPECT_AUTOMATION_ERROR(transport.GenerateTransportDoc(tmShort), errObjectNotSet,
                          "GenerateTransportDoc: GetModifiedXML: TrimDocument: TrimDocument: TrimDocument: "
                          "TrimDocument: Object variable or With block variable not set");

  // An attached declaration keeps the document's text from loading, wherever it stands.
  Transport declared;
  const Long leaf = declared.AddComponent(0, "Leaf");
  pugi::xml_node pi = testing::Internals(declared).document->AppendElement(testing::Internals(declared).NodeOf(leaf), "ATTACHMENTS");
  pi = pi.append_child(pugi::node_pi);
  pi.set_name("xml");
  pi.set_value("version=\"1.0\"");
  EXPECT_EQ(ErrorOf([&] { declared.GenerateTransportDoc(tmShort); }).description(),
            "GenerateTransportDoc: GetModifiedXML: TrimDocument: Object variable or With block variable not set");
  EXPECT_AUTOMATION_ERROR(declared.GenerateTransportDoc(tmMedium), errInvalidProcedureCall,
                          "GenerateTransportDoc: GetModifiedXML2: Invalid procedure call or argument");
  // A root name that XPath refuses.
  transport.RootName("a:b:c");
  EXPECT_EQ(ErrorOf([&] { transport.GenerateTransportDoc(tmMedium); }).number(), errXml);
}

// Trims the document element of the text once; the text left and the kill flag, as "text|-1".
std::string Trim(const std::string& text, bool mild = false) {
  Transport transport;
  pugi::xml_document document;
  EXPECT_TRUE(xml::LoadText(document, text));
  pugi::xml_node top = document.document_element();
  Boolean kill = mild ? vbFalse : vbTrue;  // the value passed in is ignored
  (transport.*(mild ? &Transport::TrimDocument2 : &Transport::TrimDocument))(document, top, kill);
  return xml::Serialize(document) + "|" + std::to_string(kill);
}

TEST(TrimDocument, KillFlagAndOnePass) {
  // Property marks do not count, only the component's own status.
  EXPECT_EQ(Trim("<A><PROPERTIES><P STATUS=\"NEW\"/></PROPERTIES></A>"),
            "<A><PROPERTIES><P STATUS=\"NEW\"/></PROPERTIES></A>|-1");
  EXPECT_EQ(Trim("<A STATUS=\" modified \"/>"), "<A STATUS=\" modified \"/>|0");
  EXPECT_EQ(Trim("<A><ATTACHMENTS><M persist=\"TRUE\"/></ATTACHMENTS></A>"),
            "<A><ATTACHMENTS><M persist=\"TRUE\"/></ATTACHMENTS></A>|0");
  // B, D and E go; A and C had sub-components when judged and stay as shells; a second pass
  // takes C.
  const std::string once = "<R><COMPONENT><A><P/><COMPONENT><B/></COMPONENT><collection><C><COMPONENT><D/>"
                           "</COMPONENT></C></collection></A></COMPONENT><COMPONENT><E/></COMPONENT></R>";
  EXPECT_EQ(Trim(once), "<R><COMPONENT><A><P/><collection><C/></collection></A></COMPONENT></R>|0");
  EXPECT_EQ(Trim("<R><COMPONENT><A><P/><collection><C/></collection></A></COMPONENT></R>"),
            "<R><COMPONENT><A><P/></A></COMPONENT></R>|0");
}

TEST(TrimDocument, OneAttachmentAndThePrototypePerNode) {
  const std::string kept = "<A STATUS=\"NEW\"><ATTACHMENTS><K persist=\"true\"/>";
  EXPECT_EQ(Trim(kept + "<ONE/><TWO persist=\"no\"/></ATTACHMENTS><PROTOTYPE/><PROTOTYPE><X/></PROTOTYPE></A>"),
            kept + "<TWO persist=\"no\"/></ATTACHMENTS><PROTOTYPE><X/></PROTOTYPE></A>|0");
  // The mild form keeps every component, and attachments that do not say "persist".
  EXPECT_EQ(Trim("<R><COMPONENT><A><ATTACHMENTS><ONE/><TWO persist=\"no\"/><III persist=\"0\"/></ATTACHMENTS>"
                 "<PROTOTYPE/></A></COMPONENT></R>", true),
            "<R><COMPONENT><A><ATTACHMENTS><ONE/><III persist=\"0\"/></ATTACHMENTS></A></COMPONENT></R>|0");
}

TEST(TrimDocument, FailuresCarryOnePrefixPerLevel) {
  Transport transport;
  pugi::xml_document document;
  pugi::xml_node top;
  Boolean kill = vbFalse;
  EXPECT_EQ(ErrorOf([&] { transport.TrimDocument(document, top, kill); }).description(),
            "TrimDocument: Object variable or With block variable not set");
  ASSERT_TRUE(
      xml::LoadText(document, "<R><COMPONENT><A><COLLECTION><B><COMPONENT/></B></COLLECTION></A></COMPONENT></R>"));
  top = document.document_element();
  EXPECT_AUTOMATION_ERROR(transport.TrimDocument2(document, top, kill), errObjectNotSet,
                          "TrimDocument2: TrimDocument2: TrimDocument2: TrimDocument2: "
                          "Object variable or With block variable not set");
}

// Restores the default budget when a test ends.
struct BudgetGuard {
  ~BudgetGuard() { SetOperationMemoryBudget(0); }
};

TEST(AnswerBudget, ReducedFormsCountEveryWrapperTakenAtItsFullTags) {
  BudgetGuard guard;
  constexpr int kEmpty = 200;
  Transport t;
  const Long order = t.AddComponent(0, "ORDER");
  std::string note = "<NOTE persist=\"true\">";
  for (int i = 0; i < kEmpty; ++i) note += i % 2 ? "<COMPONENT/>" : "<collection/>";
  note += "</NOTE>";
  t.AddCompAttachment(order, note, vbTrue);
  constexpr std::uint64_t kTaken = kEmpty + 1;  // the order's own wrapper as well
  for (const enTransportMode mode : {tmShort, tmMedium}) {
    SCOPED_TRACE(mode);
    const std::string answer = t.GenerateTransportDoc(mode);
    ASSERT_NE(answer.find("<collection/>"), std::string::npos);
    ASSERT_LT(answer.size(), kTaken * 23 - 1);  // the text alone fits either budget below
    SetOperationMemoryBudget(kTaken * 23);
    EXPECT_EQ(t.GenerateTransportDoc(mode), answer);
    SetOperationMemoryBudget(kTaken * 23 - 1);
    EXPECT_EQ(ErrorOf([&] { t.GenerateTransportDoc(mode); }).number(), errOutOfMemory);
    SetOperationMemoryBudget(0);
  }
}

}  // namespace
}  // namespace varnex
