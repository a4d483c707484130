// TrimDocument and TrimDocument2 on the caller's own MSXML document: the walk is the core's, the
// tree it removes nodes from is the caller's, and the kill flag comes back through its pointer.
#include <string>

#include <msxml2.h>

#include "server.hpp"

namespace varnex::client {
namespace {

// The node's text without the line breaks and tabs that wine's DOM indents its output with (the
// documents here hold none of their own).
std::wstring XmlOf(IXMLDOMNode* node) {
  Bstr text;
  node->get_xml(text.put());
  std::wstring xml = text.text();
  std::erase_if(xml, [](wchar_t c) { return c == L'\r' || c == L'\n' || c == L'\t'; });
  return xml;
}

TEST_F(ServerTest, TrimReducesTheCallersTreeInPlace) {
  // A component with a sub-component that is a normal leaf, a new component with a prototype and
  // three attachments (persistent, without "persist", explicitly not persistent), and a leaf.
  const wchar_t* document =
      L"<R><TALVEN><COMPONENT><A><PROPERTIES><X>1</X></PROPERTIES><COMPONENT><B><PROPERTIES/></B></COMPONENT></A>"
      L"</COMPONENT><COMPONENT><C STATUS=\"new\"><PROTOTYPE/><ATTACHMENTS><P persist=\"TRUE\"/><Q/>"
      L"<R persist=\"no\"/></ATTACHMENTS></C></COMPONENT></TALVEN><L><PROPERTIES/></L></R>";
  struct Case {
    bool mild;
    const wchar_t* path;
    VARIANT_BOOL kill;
    const wchar_t* expected;  // the node's text afterwards
  };
  const Case cases[] = {
      {false, L"/R/TALVEN", VARIANT_FALSE,
       L"<TALVEN><COMPONENT><A><PROPERTIES><X>1</X></PROPERTIES></A></COMPONENT><COMPONENT><C STATUS=\"new\">"
       L"<ATTACHMENTS><P persist=\"TRUE\"/><R persist=\"no\"/></ATTACHMENTS></C></COMPONENT></TALVEN>"},
      {true, L"/R/TALVEN", VARIANT_FALSE,
       L"<TALVEN><COMPONENT><A><PROPERTIES><X>1</X></PROPERTIES><COMPONENT><B><PROPERTIES/></B></COMPONENT></A>"
       L"</COMPONENT><COMPONENT><C STATUS=\"new\"><ATTACHMENTS><P persist=\"TRUE\"/><Q/></ATTACHMENTS></C>"
       L"</COMPONENT></TALVEN>"},
      {false, L"/R/L", VARIANT_TRUE, L"<L><PROPERTIES/></L>"},
  };
  CLSID dom_class{};
  ASSERT_EQ(CLSIDFromProgID(L"Msxml2.DOMDocument.6.0", &dom_class), S_OK);
  for (const Case& c : cases) {
    SCOPED_TRACE(testing::Message() << (c.mild ? "TrimDocument2 " : "TrimDocument ") << c.path);
    ComPtr<_Transport> transport = Create<_Transport>(CLSID_Transport);
    ComPtr<IXMLDOMDocument> dom = Create<IXMLDOMDocument>(dom_class, IID_IXMLDOMDocument);
    ASSERT_TRUE(transport);
    ASSERT_TRUE(dom);
    Bstr text(document);
    Bstr path(c.path);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    ComPtr<IXMLDOMNode> node;
    ASSERT_EQ(dom->loadXML(text.get(), &loaded), S_OK);
    ASSERT_EQ(dom->selectSingleNode(path.get(), node.put()), S_OK);

    IDispatch* doc = dom.get();
    IDispatch* start = node.get();
    VARIANT_BOOL kill = c.kill == VARIANT_TRUE ? VARIANT_FALSE : VARIANT_TRUE;  // the trim must write it
    ASSERT_EQ(c.mild ? transport->TrimDocument2(&doc, &start, &kill) : transport->TrimDocument(&doc, &start, &kill), S_OK);
    EXPECT_EQ(kill, c.kill);
    EXPECT_EQ(XmlOf(node.get()), c.expected);
  }
}

}  // namespace
}  // namespace varnex::client
