#include "cli/document_text.hpp"

#include <pugixml.hpp>

#include <fmt/format.h>

#include "cli/failures.hpp"

namespace varnex::cli {
namespace {

// The parse that the library's loading makes, declarations and comments included.
constexpr unsigned kParseFlags =
    pugi::parse_default | pugi::parse_declaration | pugi::parse_doctype | pugi::parse_pi | pugi::parse_comments;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// End of a document type declaration starting at `at`, an internal subset in brackets included.
std::size_t DoctypeEnd(std::string_view text, std::size_t at) {
  int brackets = 0;
  for (std::size_t i = at; i < text.size(); ++i) {
    if (text[i] == '[') ++brackets;
    if (text[i] == ']') --brackets;
    if (text[i] == '>' && brackets <= 0) return i + 1;
  }
  return std::string_view::npos;
}

[[noreturn]] void FailAt(std::string_view text, std::size_t offset, const std::string& name, const std::string& what) {
  const TextPosition at = PositionOf(text, offset);
  throw Failure(fmt::format("{}:{}:{}: {}", name, at.line, at.column, what));
}

}  // namespace

TextPosition PositionOf(std::string_view text, std::size_t offset) {
  TextPosition at{1, 1};
  const std::size_t end = offset < text.size() ? offset : text.size();
  for (std::size_t i = 0; i < end; ++i) {
    if (text[i] == '\n') {
      ++at.line;
      at.column = 1;
    } else if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) {
      ++at.column;  // continuation bytes of a UTF-8 character do not count
    }
  }
  return at;
}

void CheckWellFormed(const std::string& text, const std::string& name) {
  pugi::xml_document document;
  const pugi::xml_parse_result result =
      document.load_buffer(text.data(), text.size(), kParseFlags, pugi::encoding_utf8);
  if (!result) {
    std::string what = result.description();
    if (!what.empty()) what[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(what[0])));
    FailAt(text, static_cast<std::size_t>(result.offset), name, what);
  }
  pugi::xml_node root;
  for (pugi::xml_node node = document.first_child(); node; node = node.next_sibling()) {
    if (node.type() != pugi::node_element) continue;
    if (root) {
      // The parser notes where an element's name starts; the element starts at its "<".
      FailAt(text, static_cast<std::size_t>(node.offset_debug() - 1), name,
             fmt::format("a second root element <{}>", node.name()));
    }
    root = node;
  }
  if (!root) FailAt(text, text.size(), name, "no root element");
}

std::size_t PrologLength(std::string_view text) {
  std::size_t at = text.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
  for (;;) {
    while (at < text.size() && IsBlank(text[at])) ++at;
    const std::string_view rest = text.substr(at);
    std::size_t end = std::string_view::npos;
    if (rest.starts_with("<?")) {
      end = text.find("?>", at + 2);
      if (end != std::string_view::npos) end += 2;
    } else if (rest.starts_with("<!--")) {
      end = text.find("-->", at + 4);
      if (end != std::string_view::npos) end += 3;
    } else if (rest.starts_with("<!DOCTYPE")) {
      end = DoctypeEnd(text, at);
    } else {
      return at;
    }
    if (end == std::string_view::npos) return at;
    at = end;
  }
}

void DropProlog(std::string& text) { text.erase(0, PrologLength(text)); }

std::string RootElementName(std::string_view text) {
  if (!text.starts_with("<")) return {};
  std::size_t end = 1;
  while (end < text.size() && !IsBlank(text[end]) && text[end] != '>' && text[end] != '/') ++end;
  std::string_view name = text.substr(1, end - 1);
  const std::size_t colon = name.find(':');
  if (colon != std::string_view::npos) name.remove_prefix(colon + 1);
  return std::string(name);
}

}  // namespace varnex::cli
