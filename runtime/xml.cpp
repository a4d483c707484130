// The XML layer: loading rules, name checks, text, serialisation and XPath.
#include "runtime/xml.hpp"

#include <array>
#include <cstring>
#include <vector>

#include "runtime/memory_budget.hpp"
#include "runtime/text.hpp"
#include "runtime/utf8.hpp"
#include "varnex/automation_error.hpp"

namespace varnex::xml {
namespace {

constexpr unsigned kParseFlags = pugi::parse_default | pugi::parse_declaration | pugi::parse_doctype |
                                 pugi::parse_pi | pugi::parse_comments;

bool IsWhiteSpaceOnly(const char* text) {
  for (; *text; ++text) {
    if (!IsWhiteSpace(*text)) return false;
  }
  return true;
}

// Drops the white-space-only text nodes that lie outside every xml:space="preserve" scope. The
// walk is iterative so that deep documents cannot exhaust the stack.
void DropInsignificantWhiteSpace(pugi::xml_document& document) {
  struct Frame {
    pugi::xml_node node;
    bool preserve;
  };
  std::vector<Frame> stack{{document, false}};
  std::vector<pugi::xml_node> doomed;
  while (!stack.empty()) {
    const Frame frame = stack.back();
    stack.pop_back();
    for (pugi::xml_node child = frame.node.first_child(); child; child = child.next_sibling()) {
      if (child.type() == pugi::node_pcdata) {
        if (!frame.preserve && IsWhiteSpaceOnly(child.value())) doomed.push_back(child);
      } else if (child.type() == pugi::node_element) {
        bool preserve = frame.preserve;
        if (pugi::xml_attribute space = child.attribute("xml:space")) {
          preserve = std::strcmp(space.value(), "preserve") == 0;
        }
        if (child.first_child()) stack.push_back({child, preserve});
      }
    }
  }
  for (pugi::xml_node node : doomed) node.parent().remove_child(node);
}

std::size_t CountElementChildren(const pugi::xml_node& node) {
  std::size_t count = 0;
  for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
    if (child.type() == pugi::node_element) ++count;
  }
  return count;
}

constexpr bool IsNameStartChar(char32_t c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == ':' ||
         (c >= 0xC0 && c <= 0xD6) || (c >= 0xD8 && c <= 0xF6) || (c >= 0xF8 && c <= 0x2FF) ||
         (c >= 0x370 && c <= 0x37D) || (c >= 0x37F && c <= 0x1FFF) || (c >= 0x200C && c <= 0x200D) ||
         (c >= 0x2070 && c <= 0x218F) || (c >= 0x2C00 && c <= 0x2FEF) || (c >= 0x3001 && c <= 0xD7FF) ||
         (c >= 0xF900 && c <= 0xFDCF) || (c >= 0xFDF0 && c <= 0xFFFD) || (c >= 0x10000 && c <= 0xEFFFF);
}

constexpr bool IsNameChar(char32_t c) {
  return IsNameStartChar(c) || c == '-' || c == '.' || (c >= '0' && c <= '9') || c == 0xB7 ||
         (c >= 0x300 && c <= 0x36F) || (c >= 0x203F && c <= 0x2040);
}

// Per ASCII character: bit 1 when it may begin a name, bit 2 when it may stand in one.
constexpr std::array<unsigned char, 0x80> kAsciiNameChars = [] {
  std::array<unsigned char, 0x80> table{};
  for (char32_t c = 0; c < 0x80; ++c) table[c] = (IsNameStartChar(c) ? 1 : 0) | (IsNameChar(c) ? 2 : 0);
  return table;
}();

struct StringWriter : pugi::xml_writer {
  explicit StringWriter(std::string& target) : out(target) {}
  void write(const void* data, size_t size) override {
    budget::Charge(size);
    out.append(static_cast<const char*>(data), size);
  }
  std::string& out;
};

constexpr unsigned kSerializeFlags = pugi::format_raw | pugi::format_no_declaration;

// Whether the ">" at `end` is followed by white space and then "<".
bool WhiteSpaceTextAfter(std::string_view text, std::size_t end) {
  std::size_t next = end + 1;
  while (next < text.size() && IsWhiteSpace(text[next])) ++next;
  return next > end + 1 && next < text.size() && text[next] == '<';
}

}  // namespace

bool MayHoldWhiteSpaceText(std::string_view text) {
  // Most texts have no white space right after any ">". Blocks are first screened for such a pair
  // without branching (which the compiler turns into vector code); only a block with one is
  // looked at closely.
  constexpr std::size_t kBlock = 64;
  const auto* bytes = reinterpret_cast<const unsigned char*>(text.data());
  std::size_t start = 0;
  for (; start + kBlock < text.size(); start += kBlock) {
    const unsigned char* block = bytes + start;
    unsigned char pairs = 0;
    for (int i = 0; i < static_cast<int>(kBlock); ++i) {
      const unsigned char next = block[i + 1];
      const unsigned char closes = block[i] == '>';
      const unsigned char space = (next == ' ') + (next == '\t') + (next == '\r') + (next == '\n');
      pairs |= closes & space;
    }
    if (pairs == 0) continue;
    for (std::size_t i = start; i < start + kBlock; ++i) {
      if (bytes[i] == '>' && WhiteSpaceTextAfter(text, i)) return true;
    }
  }
  for (std::size_t i = start; i < text.size(); ++i) {
    if (bytes[i] == '>' && WhiteSpaceTextAfter(text, i)) return true;
  }
  return false;
}

bool MayHoldDeclaration(std::string_view text) {
  for (std::size_t at = text.find("<?"); at != std::string_view::npos; at = text.find("<?", at + 2)) {
    if (text.size() > at + 5 && (text[at + 2] | ' ') == 'x' && (text[at + 3] | ' ') == 'm' &&
        (text[at + 4] | ' ') == 'l' && (text[at + 5] == ' ' || text[at + 5] == '?')) {
      return true;
    }
  }
  return false;
}

bool LoadText(pugi::xml_document& document, std::string_view text) {
  document.reset();
  // The parser drops white-space-only text by itself; only text that has such nodes inside an
  // xml:space scope needs them kept at first and sorted out afterwards.
  const bool keeps_spaces = text.find("xml:space") != std::string_view::npos && MayHoldWhiteSpaceText(text);
  const unsigned flags = keeps_spaces ? kParseFlags | pugi::parse_ws_pcdata : kParseFlags;
  const pugi::xml_parse_result result = document.load_buffer(text.data(), text.size(), flags, pugi::encoding_utf8);
  if (!result || CountElementChildren(document) != 1) {
    document.reset();
    return false;
  }
  if (keeps_spaces) DropInsignificantWhiteSpace(document);
  return true;
}

bool IsElementName(std::string_view name) {
  if (name.empty()) return false;
  // ASCII, the usual case, is checked byte by byte; the rest is decoded.
  std::size_t pos = 0;
  for (; pos < name.size() && static_cast<unsigned char>(name[pos]) < 0x80; ++pos) {
    if ((kAsciiNameChars[static_cast<unsigned char>(name[pos])] & (pos == 0 ? 1 : 2)) == 0) return false;
  }
  if (pos == name.size()) return true;
  Utf8Unit unit = DecodeUtf8(name, pos);
  if (!unit.well_formed() || (pos == 0 ? !IsNameStartChar(unit.code_point) : !IsNameChar(unit.code_point))) return false;
  for (pos += unit.length; pos < name.size(); pos += unit.length) {
    unit = DecodeUtf8(name, pos);
    if (!unit.well_formed() || !IsNameChar(unit.code_point)) return false;
  }
  return true;
}

void CheckElementName(std::string_view name) {
  if (!IsElementName(name)) {
    throw AutomationError(errXml, kRuntimeSource,
                          "The name '" + std::string(name) + "' is not a valid XML element name.");
  }
}

pugi::xml_node AppendElement(pugi::xml_node parent, std::string_view name) {
  CheckElementName(name);
  pugi::xml_node element = parent.append_child(pugi::node_element);
  if (!element) throw AutomationError::Runtime(errInvalidProcedureCall);
  element.set_name(std::string(name).c_str());
  return element;
}

std::string_view LocalName(pugi::xml_node node) {
  if (node.type() != pugi::node_element && node.type() != pugi::node_pi &&
      node.type() != pugi::node_declaration) {
    return {};
  }
  std::string_view name = node.name();
  const auto colon = name.find(':');
  return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

bool LocalNameIs(pugi::xml_node node, std::string_view name) {
  const std::string_view local = LocalName(node);
  if (local.size() != name.size()) {
    // Upper-casing can change the length of non-ASCII text only; ASCII names differ outright.
    bool ascii = true;
    for (char c : local) ascii = ascii && static_cast<unsigned char>(c) < 0x80;
    if (ascii) return false;
  }
  return EqualsIgnoreCase(local, name);
}

bool ElementNamed(pugi::xml_node node, const char* name) {
  return node.type() == pugi::node_element && std::strcmp(node.name(), name) == 0;
}

pugi::xml_node ChildElement(pugi::xml_node node, const char* name) {
  for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
    if (ElementNamed(child, name)) return child;
  }
  return {};
}

std::string Text(pugi::xml_node node) {
  switch (node.type()) {
    case pugi::node_pcdata:
    case pugi::node_cdata:
    case pugi::node_comment:
    case pugi::node_pi:
      return node.value();
    case pugi::node_null:
      return {};
    default:
      break;
  }
  std::string text;
  pugi::xml_node current = node.first_child();
  while (current) {
    if (current.type() == pugi::node_pcdata || current.type() == pugi::node_cdata) text += current.value();
    if (current.type() == pugi::node_element && current.first_child()) {
      current = current.first_child();
      continue;
    }
    while (current && current != node && !current.next_sibling()) current = current.parent();
    if (!current || current == node) break;
    current = current.next_sibling();
  }
  return text;
}

void SerializeTo(pugi::xml_node node, std::string& out) {
  StringWriter writer(out);
  if (node.type() == pugi::node_document) {
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
      child.print(writer, "", kSerializeFlags, pugi::encoding_utf8);
    }
  } else if (node) {
    node.print(writer, "", kSerializeFlags, pugi::encoding_utf8);
  }
}

std::string Serialize(pugi::xml_node node) {
  std::string out;
  SerializeTo(node, out);
  return out;
}

const char* AttributeOrNull(pugi::xml_node node, const char* name) {
  pugi::xml_attribute attribute = node.attribute(name);
  return attribute ? attribute.value() : nullptr;
}

pugi::xpath_node_set SelectNodes(pugi::xml_node context, const std::string& expression) {
  try {
    pugi::xpath_query query(expression.c_str());
    pugi::xpath_node_set nodes = query.evaluate_node_set(context);
    nodes.sort();
    return nodes;
  } catch (const pugi::xpath_exception& error) {
    throw AutomationError(errXml, kRuntimeSource,
                          std::string("XPath error: ") + error.what() + " in '" + expression + "'");
  }
}

}  // namespace varnex::xml
