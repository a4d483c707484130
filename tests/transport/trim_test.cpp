// The reduction rule of TrimDocument and TrimDocument2, on documents of the caller's own.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::Failure;

struct Trimmed {
  std::string text;
  Boolean kill;
};

// Loads the text and trims its document element once.
Trimmed Trim(const std::string& text, bool mild = false, Boolean kill = vbFalse) {
  Transport transport;
  pugi::xml_document document;
  EXPECT_TRUE(xml::LoadText(document, text));
  pugi::xml_node top = document.document_element();
  if (mild) {
    transport.TrimDocument2(document, top, kill);
  } else {
    transport.TrimDocument(document, top, kill);
  }
  return {xml::Serialize(document), kill};
}

TEST(TrimDocument, KillFlagFollowsTheThreePartRule) {
  EXPECT_EQ(Trim("<A/>").kill, vbTrue);
  EXPECT_EQ(Trim("<A><PROPERTIES><P>1</P></PROPERTIES></A>", false, vbTrue).kill, vbTrue);
  EXPECT_EQ(Trim("<A STATUS=\"MODIFIED\"/>").kill, vbFalse);
  EXPECT_EQ(Trim("<A STATUS=\" deleted \"/>").kill, vbFalse);
  EXPECT_EQ(Trim("<A STATUS=\"new\"/>").kill, vbFalse);
  EXPECT_EQ(Trim("<A STATUS=\"GONE\"/>").kill, vbTrue);
  EXPECT_EQ(Trim("<A><ATTACHMENTS><MAP persist=\"TRUE\"/></ATTACHMENTS></A>").kill, vbFalse);
  EXPECT_EQ(Trim("<A><ATTACHMENTS><MAP persist=\"yes\"/></ATTACHMENTS></A>").kill, vbTrue);
  // Property marks do not count: only the component's own status does.
  EXPECT_EQ(Trim("<A><PROPERTIES><P STATUS=\"MODIFIED\">1</P></PROPERTIES></A>").kill, vbTrue);
  // Wrappers are recognised in any case.
  EXPECT_EQ(Trim("<A><collection><B STATUS=\"NEW\"/></collection></A>").kill, vbFalse);
}

TEST(TrimDocument, OnePassRemovesOnlyLeavesAndKeepsTheirEmptiedParents) {
  const Trimmed once = Trim(
      "<R><COMPONENT><A><PROPERTIES><P>1</P></PROPERTIES><COMPONENT><B/></COMPONENT>"
      "<COLLECTION><C><COMPONENT><D/></COMPONENT></C></COLLECTION></A></COMPONENT>"
      "<COMPONENT><E/></COMPONENT><COMPONENT><F STATUS=\"MODIFIED\"><COMPONENT><G/></COMPONENT></F></COMPONENT>"
      "<DOMAIN><X/></DOMAIN></R>");
  // B, D, E and G go; A and C had sub-components when they were judged, so they stay as shells.
  EXPECT_EQ(once.text,
            "<R><COMPONENT><A><PROPERTIES><P>1</P></PROPERTIES><COLLECTION><C/></COLLECTION></A></COMPONENT>"
            "<COMPONENT><F STATUS=\"MODIFIED\"/></COMPONENT><DOMAIN><X/></DOMAIN></R>");
  EXPECT_EQ(once.kill, vbFalse);
  // A second pass takes the next layer only.
  EXPECT_EQ(Trim(once.text).text,
            "<R><COMPONENT><A><PROPERTIES><P>1</P></PROPERTIES></A></COMPONENT>"
            "<COMPONENT><F STATUS=\"MODIFIED\"/></COMPONENT><DOMAIN><X/></DOMAIN></R>");
}

TEST(TrimDocument, StripsOneNonPersistentAttachmentPerCall) {
  const std::string text =
      "<A STATUS=\"NEW\"><ATTACHMENTS><KEEP persist=\"true\"/><ONE/><TWO persist=\"no\"/><LAST persist=\"True\"/>"
      "</ATTACHMENTS></A>";
  const Trimmed first = Trim(text);
  EXPECT_EQ(first.text,
            "<A STATUS=\"NEW\"><ATTACHMENTS><KEEP persist=\"true\"/><TWO persist=\"no\"/><LAST persist=\"True\"/>"
            "</ATTACHMENTS></A>");
  const Trimmed second = Trim(first.text);
  EXPECT_EQ(second.text,
            "<A STATUS=\"NEW\"><ATTACHMENTS><KEEP persist=\"true\"/><LAST persist=\"True\"/></ATTACHMENTS></A>");
  EXPECT_EQ(Trim(second.text).text, second.text);
  // Only an element named exactly "ATTACHMENTS" holds attachments.
  EXPECT_EQ(Trim("<A STATUS=\"NEW\"><attachments><ONE/></attachments></A>").text,
            "<A STATUS=\"NEW\"><attachments><ONE/></attachments></A>");
}

TEST(TrimDocument, RemovesTheFirstPrototypeOfEveryVisitedNode) {
  EXPECT_EQ(Trim("<A STATUS=\"NEW\"><PROTOTYPE><X/></PROTOTYPE><PROTOTYPE><Y/></PROTOTYPE>"
                 "<COLLECTION><C STATUS=\"NEW\"><PROTOTYPE/></C></COLLECTION></A>")
                .text,
            "<A STATUS=\"NEW\"><PROTOTYPE><Y/></PROTOTYPE><COLLECTION><C STATUS=\"NEW\"/></COLLECTION></A>");
  // Only what wrappers lead to is visited.
  EXPECT_EQ(Trim("<A STATUS=\"NEW\"><PROPERTIES><P><PROTOTYPE/></P></PROPERTIES></A>").text,
            "<A STATUS=\"NEW\"><PROPERTIES><P><PROTOTYPE/></P></PROPERTIES></A>");
}

TEST(TrimDocument2, KeepsEveryComponentAndStripsOnlyExplicitlyNonPersistentAttachments) {
  const Trimmed mild = Trim(
      "<R><COMPONENT><A><ATTACHMENTS><PLAIN/><OFF persist=\"false\"/><ALSO persist=\"0\"/></ATTACHMENTS>"
      "<PROTOTYPE/></A></COMPONENT><COMPONENT><B/></COMPONENT></R>",
      true, vbTrue);
  EXPECT_EQ(mild.kill, vbFalse);
  EXPECT_EQ(mild.text,
            "<R><COMPONENT><A><ATTACHMENTS><PLAIN/><ALSO persist=\"0\"/></ATTACHMENTS></A></COMPONENT>"
            "<COMPONENT><B/></COMPONENT></R>");
  EXPECT_EQ(Trim("<A/>", true).kill, vbFalse);
}

TEST(TrimDocument, FailuresCarryOnePrefixPerLevel) {
  Transport transport;
  pugi::xml_document document;
  pugi::xml_node missing;
  Boolean kill = vbTrue;
  const AutomationError nothing = Failure([&] { transport.TrimDocument(document, missing, kill); });
  EXPECT_EQ(nothing.number(), errObjectNotSet);
  EXPECT_EQ(nothing.description(), "TrimDocument: Object variable or With block variable not set");
  EXPECT_EQ(kill, vbTrue);

  // A wrapper without a component, two levels down.
  ASSERT_TRUE(xml::LoadText(document, "<R><COMPONENT><A><COLLECTION><B><COMPONENT/></B></COLLECTION></A></COMPONENT></R>"));
  pugi::xml_node top = document.document_element();
  const AutomationError deep = Failure([&] { transport.TrimDocument(document, top, kill); });
  EXPECT_EQ(deep.number(), errObjectNotSet);
  EXPECT_EQ(deep.description(),
            "TrimDocument: TrimDocument: TrimDocument: TrimDocument: "
            "Object variable or With block variable not set");
  const AutomationError mild = Failure([&] { transport.TrimDocument2(document, top, kill); });
  EXPECT_EQ(mild.description(),
            "TrimDocument2: TrimDocument2: TrimDocument2: TrimDocument2: "
            "Object variable or With block variable not set");
}

}  // namespace
}  // namespace varnex
