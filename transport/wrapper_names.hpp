// The two wrapper elements that hold every component and collection: "COMPONENT" and
// "COLLECTION". Code that walks the tree tests names without regard to case; the document-wide
// selections of wrappers match the names exactly, as XPath does.
#pragma once

#include <pugixml.hpp>

#include "runtime/xml.hpp"

namespace varnex {

// A wrapper as a walk recognises it: "COMPONENT" or "COLLECTION" in any case.
inline bool IsWrapper(pugi::xml_node node) {
  return xml::LocalNameIs(node, "COMPONENT") || xml::LocalNameIs(node, "COLLECTION");
}

// A wrapper as the selections find it: an element named exactly "COMPONENT" or "COLLECTION".
inline bool IsSelectedWrapper(pugi::xml_node node) {
  return xml::ElementNamed(node, "COMPONENT") || xml::ElementNamed(node, "COLLECTION");
}

}  // namespace varnex
