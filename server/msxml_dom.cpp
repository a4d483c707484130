#include "msxml_dom.hpp"

#include "errors.hpp"
#include "runtime/text.hpp"
#include "strings.hpp"
#include "transport/node_status.hpp"

namespace varnex::server {
namespace {

// A BSTR the DOM handed out, freed at the end of the scope.
class DomText {
 public:
  DomText() = default;
  ~DomText() { SysFreeString(text_); }
  DomText(const DomText&) = delete;
  DomText& operator=(const DomText&) = delete;
  BSTR* put() { return &text_; }
  std::string Utf8() const { return ToUtf8(text_); }

 private:
  BSTR text_ = nullptr;
};

// A node the DOM answers through an out parameter; S_FALSE (none) gives a null node.
template <typename Call>
MsxmlDom::Node Answer(Call&& call) {
  MsxmlDom::Node node;
  ThrowIfFailed(call(node.put()));
  return node;
}

// The attribute's text, or false when the element does not carry it (or the node is no element).
bool ReadAttribute(const MsxmlDom::Node& node, const char* name, std::string& text) {
  ComPtr<IXMLDOMElement> element = node.As<IXMLDOMElement>(IID_IXMLDOMElement);
  if (!element) return false;
  BSTR attribute = ToBstr(name);
  VARIANT value;
  VariantInit(&value);
  const HRESULT hr = element->getAttribute(attribute, &value);
  SysFreeString(attribute);
  ThrowIfFailed(hr);
  const bool present = value.vt == VT_BSTR;
  if (present) text = ToUtf8(value.bstrVal);
  VariantClear(&value);
  return present;
}

}  // namespace

MsxmlDom::Node MsxmlDom::FirstChild(const Node& node) {
  return Answer([&](IXMLDOMNode** child) { return node->get_firstChild(child); });
}

MsxmlDom::Node MsxmlDom::NextSibling(const Node& node) {
  return Answer([&](IXMLDOMNode** sibling) { return node->get_nextSibling(sibling); });
}

bool MsxmlDom::IsWrapper(const Node& node) {
  DomText name;
  ThrowIfFailed(node->get_baseName(name.put()));
  const std::string text = name.Utf8();
  return EqualsIgnoreCase(text, "COMPONENT") || EqualsIgnoreCase(text, "COLLECTION");
}

MsxmlDom::Node MsxmlDom::ChildElement(const Node& node, const char* name) {
  for (Node child = FirstChild(node); child; child = NextSibling(child)) {
    DOMNodeType type = NODE_INVALID;
    ThrowIfFailed(child->get_nodeType(&type));
    if (type != NODE_ELEMENT) continue;
    DomText child_name;
    ThrowIfFailed(child->get_nodeName(child_name.put()));
    if (child_name.Utf8() == name) return child;
  }
  return {};
}

enComponentStatus MsxmlDom::Status(const Node& node) {
  std::string text;
  if (!node || !ReadAttribute(node, "STATUS", text)) return csNormal;
  return StatusOfText(text);
}

trim::Persist MsxmlDom::Persistence(const Node& attachment) {
  std::string text;
  if (!ReadAttribute(attachment, "persist", text)) return trim::Persist::kMissing;
  return EqualsIgnoreCase(text, "true") ? trim::Persist::kTrue : trim::Persist::kOther;
}

void MsxmlRemoving::Remove(const MsxmlDom::Node& parent, const MsxmlDom::Node& child) {
  MsxmlDom::Node removed;
  ThrowIfFailed(parent->removeChild(child.get(), removed.put()));
}

MsxmlDom::Node DomNodeOf(IDispatch* object) {
  if (object == nullptr) return {};
  MsxmlDom::Node node;
  if (FAILED(object->QueryInterface(IID_IXMLDOMNode, reinterpret_cast<void**>(node.put())))) {
    throw AutomationError::Runtime(errTypeMismatch);
  }
  return node;
}

}  // namespace varnex::server
