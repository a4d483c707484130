// TrimDocument and TrimDocument2 on the caller's own MSXML document, reduced in place.
#include <string>

#include <msxml2.h>

#include "server.hpp"

namespace varnex::client {
namespace {

// A component with a sub-component that is a normal leaf, and a new component with a prototype
// and three attachments: persistent, without "persist", and explicitly not persistent.
constexpr const wchar_t* kDocument =
    L"<TALVEN><COMPONENT><A><PROPERTIES><X>1</X></PROPERTIES><COMPONENT><B><PROPERTIES/></B></COMPONENT></A>"
    L"</COMPONENT><COMPONENT><C STATUS=\"new\"><PROTOTYPE/><ATTACHMENTS><P persist=\"TRUE\"/><Q/>"
    L"<R persist=\"no\"/></ATTACHMENTS></C></COMPONENT></TALVEN>";

// The node's text without the line breaks and tabs that wine's DOM indents its output with (the
// documents here hold none of their own).
std::wstring XmlOf(IXMLDOMNode* node) {
  Bstr text;
  node->get_xml(text.put());
  std::wstring xml = text.text();
  std::erase_if(xml, [](wchar_t c) { return c == L'\r' || c == L'\n' || c == L'\t'; });
  return xml;
}

class TrimTest : public ServerTest {};

TEST_F(TrimTest, TheCallersTreeIsReducedInPlace) {
  struct Case {
    const char* name;
    bool mild;
    const wchar_t* expected;
  };
  const Case cases[] = {
      {"TrimDocument", false,
       L"<TALVEN><COMPONENT><A><PROPERTIES><X>1</X></PROPERTIES></A></COMPONENT><COMPONENT><C STATUS=\"new\">"
       L"<ATTACHMENTS><P persist=\"TRUE\"/><R persist=\"no\"/></ATTACHMENTS></C></COMPONENT></TALVEN>"},
      {"TrimDocument2", true,
       L"<TALVEN><COMPONENT><A><PROPERTIES><X>1</X></PROPERTIES><COMPONENT><B><PROPERTIES/></B></COMPONENT></A>"
       L"</COMPONENT><COMPONENT><C STATUS=\"new\"><ATTACHMENTS><P persist=\"TRUE\"/><Q/></ATTACHMENTS></C>"
       L"</COMPONENT></TALVEN>"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    ComPtr<_Transport> transport = Create<_Transport>(CLSID_Transport);
    ComPtr<IXMLDOMDocument> document = Create<IXMLDOMDocument>(L"Msxml2.DOMDocument.6.0", IID_IXMLDOMDocument);
    ASSERT_TRUE(transport);
    ASSERT_TRUE(document);
    Bstr text(kDocument);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    ASSERT_EQ(document->loadXML(text.get(), &loaded), S_OK);
    ASSERT_EQ(loaded, VARIANT_TRUE);
    ComPtr<IXMLDOMElement> root;
    ASSERT_EQ(document->get_documentElement(root.put()), S_OK);

    IDispatch* doc = document.get();
    IDispatch* node = root.get();
    VARIANT_BOOL kill = VARIANT_TRUE;
    const HRESULT hr = c.mild ? transport->TrimDocument2(&doc, &node, &kill) : transport->TrimDocument(&doc, &node, &kill);
    ASSERT_EQ(hr, S_OK) << testing::PrintToString(TakeErrorObject().description);
    EXPECT_EQ(kill, VARIANT_FALSE) << "a node that had sub-components stays";
    EXPECT_EQ(XmlOf(root.get()), c.expected);
  }
}

TEST_F(TrimTest, ALeafMayGoAndAWrapperWithoutComponentFails) {
  ComPtr<_Transport> transport = Create<_Transport>(CLSID_Transport);
  ComPtr<IXMLDOMDocument> document = Create<IXMLDOMDocument>(L"Msxml2.DOMDocument.6.0", IID_IXMLDOMDocument);
  ASSERT_TRUE(transport);
  ASSERT_TRUE(document);
  Bstr text(L"<R><A><PROPERTIES/></A><B><COMPONENT/></B></R>");
  VARIANT_BOOL loaded = VARIANT_FALSE;
  ASSERT_EQ(document->loadXML(text.get(), &loaded), S_OK);
  ComPtr<IXMLDOMNode> leaf;
  ComPtr<IXMLDOMNode> broken;
  Bstr leaf_path(L"/R/A");
  Bstr broken_path(L"/R/B");
  ASSERT_EQ(document->selectSingleNode(leaf_path.get(), leaf.put()), S_OK);
  ASSERT_EQ(document->selectSingleNode(broken_path.get(), broken.put()), S_OK);

  IDispatch* doc = document.get();
  IDispatch* node = leaf.get();
  VARIANT_BOOL kill = VARIANT_FALSE;
  ASSERT_EQ(transport->TrimDocument(&doc, &node, &kill), S_OK);
  EXPECT_EQ(kill, VARIANT_TRUE);

  node = broken.get();
  EXPECT_EQ(transport->TrimDocument(&doc, &node, &kill), static_cast<HRESULT>(0x800A005B));
  EXPECT_EQ(TakeErrorObject().description,
            L"TrimDocument: TrimDocument: Object variable or With block variable not set")
      << "one prefix per level";
}

}  // namespace
}  // namespace varnex::client
