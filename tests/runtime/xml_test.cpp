// The XML layer: loading rules, names, text, serialisation, XPath, and the document that keeps
// removed nodes alive.
#include <gtest/gtest.h>

#include "runtime/xml.hpp"
#include "runtime/xml_document.hpp"
#include "support/errors.hpp"

namespace varnex::xml {
namespace {

pugi::xml_document Loaded(const std::string& text) {
  pugi::xml_document document;
  EXPECT_TRUE(LoadText(document, text)) << text;
  return document;
}

TEST(XmlLoading, DropsWhiteSpaceTextOutsidePreservedElementsAndRefusesAllButOneDocument) {
  // Preservation is inherited and can be switched off again; everything else is kept.
  const std::pair<const char*, const char*> cases[] = {
      {"<A>\n  <B> x </B>\n  <C xml:space=\"preserve\">  <D>  </D></C>\n</A>",
       "<A><B> x </B><C xml:space=\"preserve\">  <D>  </D></C></A>"},
      {"<A xml:space=\"preserve\"><B> </B><C xml:space=\"default\"><D> </D></C></A>",
       "<A xml:space=\"preserve\"><B> </B><C xml:space=\"default\"><D/></C></A>"},
      {"<?xml version=\"1.0\"?><!--c--><A><?pi data?><![CDATA[x<y]]></A>",
       "<?xml version=\"1.0\"?><!--c--><A><?pi data?><![CDATA[x<y]]></A>"}};
  for (const auto& [text, kept] : cases) EXPECT_EQ(Serialize(Loaded(text)), kept);
  pugi::xml_document document;
  for (const char* text : {"", "<A>", "<A></B>", "<A/><B/>", "<!--only a comment-->", "text"}) {
    ASSERT_TRUE(LoadText(document, "<X/>"));
    EXPECT_FALSE(LoadText(document, text)) << text;
    EXPECT_FALSE(document.first_child()) << "a failed load leaves the document empty: " << text;
  }
}

TEST(XmlLoading, FindsWhiteSpaceTextAtAnyOffsetOfALongText) {
  // Long texts are screened in blocks: a pair across a block's end, or in the last bytes, counts.
  for (std::size_t pad = 0; pad < 140; ++pad) {
    const std::string head = "<A>" + std::string(pad, 'x');
    EXPECT_TRUE(MayHoldWhiteSpaceText(head + "<B> \r\n\t<C/></B></A>")) << pad;
    EXPECT_TRUE(MayHoldWhiteSpaceText(head + "<B>\t<C/>")) << pad;
    EXPECT_FALSE(MayHoldWhiteSpaceText(head + "<B> x<C/></B></A>")) << pad;
    EXPECT_FALSE(MayHoldWhiteSpaceText(head + "<B>  ")) << pad;
  }
}

TEST(XmlNames, ChecksElementNamesAndComparesLocalNames) {
  for (const char* good : {"A", "_x", "a-b.c", "a:b", "É1", "名前"}) EXPECT_TRUE(IsElementName(good)) << good;
  // Malformed UTF-8 never makes a name: an over-long "A", a lone surrogate, a cut-off sequence.
  for (const char* bad : {"", "1A", "A B", "-a", "a<b", "\xff", "\xC1\x81", "a\xED\xA0\x80", "\xE5\x90"}) {
    EXPECT_FALSE(IsElementName(bad)) << bad;
  }
  EXPECT_AUTOMATION_ERROR_FROM(CheckElementName("1A"), errXml, "Varnex", "The name '1A' is not a valid XML element name.");

  auto document = Loaded("<p:Root xmlns:p=\"u\"><!--c-->text</p:Root>");
  const pugi::xml_node root = document.document_element();
  EXPECT_EQ(std::string(LocalName(root)) + "|" + std::string(LocalName(root.first_child())), "Root|");
  EXPECT_TRUE(LocalNameIs(root, "ROOT") && !LocalNameIs(root, "ROO"));
  EXPECT_TRUE(ElementNamed(root, "p:Root") && !ElementNamed(root, "p:root"));
}

TEST(XmlText, ConcatenatesDescendantText) {
  auto document = Loaded("<A>one<B>two<C>three</C></B><!--not text--><![CDATA[four]]></A>");
  EXPECT_EQ(Text(document.document_element()), "onetwothreefour");
  EXPECT_EQ(Text(document.document_element().first_child()), "one");
}

TEST(XmlXPath, RunsCompiledExpressionsAndReportsBadOnes) {
  auto document = Loaded("<R><COMPONENT><A/></COMPONENT><COLLECTION><A/></COLLECTION><COMPONENT><B/></COMPONENT></R>");
  const pugi::xml_node root = document.document_element();
  const auto all = SelectNodes(root, "./COLLECTION/* | ./COMPONENT/*");
  ASSERT_EQ(all.size(), 3u);
  EXPECT_EQ(all[0].node().parent().name(), std::string("COMPONENT")) << "unions come back in document order";
  const AutomationError error = varnex::testing::ErrorOf([&] { SelectNodes(root, "./COMPONENT/A B"); });
  EXPECT_TRUE(error.number() == errXml && error.description().find("./COMPONENT/A B") != std::string::npos);
}

TEST(XmlWalk, VisitsInDocumentOrderSkipsSubtreesAndHandlesVeryDeepTrees) {
  auto document = Loaded("<A><B><C/></B><D><E/></D></A>");
  std::string seen;
  WalkElements(document.document_element(), [&](pugi::xml_node element) {
    seen += element.name();
    return std::string(element.name()) != "B";
  });
  EXPECT_EQ(seen, "ABDE");

  pugi::xml_document deep;
  pugi::xml_node node = deep;
  for (int i = 0; i < 100000; ++i) node = node.append_child("N");
  node.append_child(pugi::node_pcdata).set_value("deep");
  int count = 0;
  WalkElements(deep.document_element(), [&](pugi::xml_node) { return ++count > 0; });
  EXPECT_EQ(std::to_string(count) + Text(deep), "100000deep");
}

TEST(XmlDocument, DetachedNodesStayAliveOutsideTheVisibleTreeAndItsSelections) {
  XmlDocument doc;
  const pugi::xml_node root = doc.AppendElement(doc.document(), "R");
  const pugi::xml_node a = doc.AppendElement(root, "A"), b = doc.AppendElement(a, "B");
  doc.AppendElement(root, "C");
  doc.Detach(a);
  EXPECT_EQ(doc.Serialize(), "<R><C/></R>");
  EXPECT_FALSE(doc.ParentOf(a)) << "the top of a cut-out tree has no parent";
  EXPECT_EQ(doc.ParentOf(b), a);
  EXPECT_EQ((std::vector<std::size_t>{doc.SelectNodes(root, "//B").size(), doc.SelectNodes(root, "//*").size(),
                                      doc.SelectNodes(a, "./B").size()}),
            (std::vector<std::size_t>{0, 2, 1}));
  EXPECT_EQ(doc.SelectSingleNode(a, "//C"), pugi::xml_node()) << "a cut-out tree does not see the document";
  doc.AppendElement(b, "New");
  EXPECT_EQ(Serialize(a), "<A><B><New/></B></A>");
}

TEST(XmlDocument, SetTextKeepsCutOutChildrenAlive) {
  using enum XmlDocument::TextChange;
  XmlDocument doc;
  const pugi::xml_node a = doc.AppendElement(doc.document(), "A"), b = doc.AppendElement(a, "B");
  std::vector<std::pair<XmlDocument::TextChange, std::string>> seen;
  const auto set = [&](const char* text) {
    const XmlDocument::TextChange change = doc.SetText(a, text);
    seen.emplace_back(change, Serialize(a));
  };
  set("x");
  EXPECT_TRUE(!doc.ParentOf(b) && std::string(b.name()) == "B");
  set("changed in place");  // a lone text is replaced in place
  set("");
  set("again");
  doc.AppendElement(a, "C");  // text beside an element is no lone text
  set("mixed");
  EXPECT_EQ(seen, (decltype(seen){{Elements, "<A>x</A>"}, {InPlace, "<A>changed in place</A>"}, {TextNodes, "<A/>"},
                                  {TextNodes, "<A>again</A>"}, {Elements, "<A>mixed</A>"}}));
}

}  // namespace
}  // namespace varnex::xml
