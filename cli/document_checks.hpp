// The checks of `varnex validate`: is a text a transport document that the library reads as its
// writer meant? They work on the XML itself, since the library passes over what it does not read.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include <pugixml.hpp>

namespace varnex::cli {

struct Finding {
  bool error;          // false: a warning
  std::ptrdiff_t offset;  // where in the text, -1 when not known
  std::string path;    // the component concerned, "" for the document as a whole
  std::string what;
};

// Reports every problem of the parsed document: the domain sections first, then the components
// depth first.
void CheckDocument(const pugi::xml_document& document, const std::function<void(const Finding&)>& report);

}  // namespace varnex::cli
