// The checks of `varnex validate`: is a text a transport document that the library reads as its
// writer meant? They work on the XML itself, since the library passes over what it does not read.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <pugixml.hpp>

namespace varnex::cli {

struct Finding {
  bool error;             // false: a warning
  std::ptrdiff_t offset;  // where in the text, -1 when not known
  std::string path;       // the component concerned, "" for the document as a whole
  std::string what;
};

// Every problem of the parsed document, in the order of the text.
std::vector<Finding> CheckDocument(const pugi::xml_document& document);

}  // namespace varnex::cli
