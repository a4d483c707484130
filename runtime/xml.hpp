// The XML layer over pugixml: loading rules, names, text, serialisation and XPath, as the
// platform's DOM behaved. Nothing here knows about components.
#pragma once

#include <string>
#include <string_view>

#include <pugixml.hpp>

namespace varnex::xml {

// Loads text into the document, replacing what it held. Text nodes made only of white space are
// dropped unless an enclosing element carries xml:space="preserve"; all other nodes (comments,
// processing instructions, the declaration) are kept. Text that is not well-formed XML, or that
// has no single document element, leaves the document empty and answers false.
bool LoadText(pugi::xml_document& document, std::string_view text);

// The white space of XML: space, tab, carriage return and line feed.
constexpr bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
// True when raw XML text may hold a text node made only of white space (a ">" followed by white
// space and then "<"), which loading drops outside xml:space="preserve". A match inside a comment
// or an attribute value is a false alarm the callers can afford.
bool MayHoldWhiteSpaceText(std::string_view text);
// True when raw XML text may hold an XML declaration ("<?xml" then a blank or "?", in any case)
// past its start, where loading refuses one.
bool MayHoldDeclaration(std::string_view text);

// Error of the XML layer (0x80004005) unless the name is a valid XML element name.
void CheckElementName(std::string_view name);
bool IsElementName(std::string_view name);

// Creates an element with a checked name and appends it as the parent's last child.
pugi::xml_node AppendElement(pugi::xml_node parent, std::string_view name);

// The node's local name: the element or processing-instruction name after any prefix, "" for
// text, comments and the document.
std::string_view LocalName(pugi::xml_node node);
// True when the node's local name equals `name` without regard to case.
bool LocalNameIs(pugi::xml_node node, std::string_view name);
// True for an element whose name is exactly `name` (an XPath name test).
bool ElementNamed(pugi::xml_node node, const char* name);
// The first child element named exactly `name`, as the path step "./name" selects it; empty when
// there is none.
pugi::xml_node ChildElement(pugi::xml_node node, const char* name);

// An element's text: the concatenation of its descendants' text; a text, comment or processing
// instruction node's own value.
std::string Text(pugi::xml_node node);

// The node's raw serialisation (no declaration, no indentation); for the document node, every
// child in turn.
std::string Serialize(pugi::xml_node node);
// Appends the node's raw serialisation to `out`.
void SerializeTo(pugi::xml_node node, std::string& out);

// Value of an attribute, or nullptr when the element does not carry it.
const char* AttributeOrNull(pugi::xml_node node, const char* name);

// Compiles and runs an XPath expression from `context`; an expression that does not compile is
// an error of the XML layer naming the expression.
pugi::xpath_node_set SelectNodes(pugi::xml_node context, const std::string& expression);

}  // namespace varnex::xml

namespace varnex::xml {

// Visits the elements of the subtree of `top` (itself included) in document order, without
// recursion. The visitor answers whether to go on into the element's children.
template <typename Visit>
void WalkElements(pugi::xml_node top, Visit&& visit) {
  pugi::xml_node current = top;
  while (current) {
    const bool descend = current.type() == pugi::node_element && visit(current);
    if (descend && current.first_child()) {
      current = current.first_child();
      continue;
    }
    while (current != top && !current.next_sibling()) current = current.parent();
    if (current == top) break;
    current = current.next_sibling();
  }
}

}  // namespace varnex::xml
