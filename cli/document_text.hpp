// The text of a transport document as the tool hands it to the library: checked for
// well-formedness first, with what stands before the root element left out.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace varnex::cli {

struct TextPosition {
  std::size_t line;    // 1-based
  std::size_t column;  // 1-based, in characters
};

// Line and column of a byte offset into the text.
TextPosition PositionOf(std::string_view text, std::size_t offset);

// A Failure "NAME:LINE:COL: what is wrong" when the text is not well-formed XML with exactly one
// root element.
void CheckWellFormed(const std::string& text, const std::string& name);

// Length of what stands before the root element: a byte-order mark, white space, the XML
// declaration, processing instructions, comments and a document type declaration. The library
// takes the root name from the first node, so these must not reach it.
std::size_t PrologLength(std::string_view text);

// Leaves out the prolog, in place.
void DropProlog(std::string& text);

// The local name of the root element of a text that starts with it ("" when it does not).
std::string RootElementName(std::string_view text);

}  // namespace varnex::cli
