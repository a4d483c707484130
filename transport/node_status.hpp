// The change status of a component or property element, kept in its "STATUS" attribute.
#pragma once

#include <string_view>

#include <pugixml.hpp>

#include "varnex/types.hpp"

namespace varnex {

// Reads "STATUS": trimmed of blanks and compared without regard to case, "NEW", "DELETED" and
// "MODIFIED" give their status; a missing node or attribute and any other text give csNormal.
enComponentStatus GetNodeStatus(pugi::xml_node node);
// The same reading of the attribute's text.
enComponentStatus StatusOfText(std::string_view text);

// The text written for a status: "MODIFIED", "NEW", "DELETED"; nullptr for csNormal and any
// other value, which are written as no attribute at all.
const char* StatusText(Long status);

// Appends or replaces "STATUS" with the text of the status; does nothing for csNormal.
void WriteStatus(pugi::xml_node node, Long status);

// Removes "STATUS" and "ORIGINAL" from every property element of the component ("./PROPERTIES/*").
void ClearPropertyMarks(pugi::xml_node component);

// Sets an attribute, appending it when the element does not carry it yet.
void SetAttribute(pugi::xml_node node, const char* name, const char* value);

}  // namespace varnex
