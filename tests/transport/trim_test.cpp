// The reduction rule of TrimDocument and TrimDocument2, on documents of the caller's own.
#include "transport/exchange_fixture.hpp"

namespace varnex {
namespace {

using testing::ErrorOf;

// Trims the document element of the text once; the text left and the kill flag, as "text|-1".
std::string Trim(const std::string& text, bool mild = false) {
  Transport transport;
  pugi::xml_document document;
  EXPECT_TRUE(xml::LoadText(document, text));
  pugi::xml_node top = document.document_element();
  Boolean kill = mild ? vbFalse : vbTrue;  // the value passed in is ignored
  if (mild) {
    transport.TrimDocument2(document, top, kill);
  } else {
    transport.TrimDocument(document, top, kill);
  }
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

}  // namespace
}  // namespace varnex
