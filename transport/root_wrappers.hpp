// The top-level wrappers as the exchange operations select them: "//R/COMPONENT | //R/COLLECTION",
// R being the root name. The expression is compiled, so that a root name XPath refuses fails as
// it did, and then run as a direct walk, which selects the same nodes in the same order.
#pragma once

#include <string>
#include <vector>

#include <pugixml.hpp>

namespace varnex {

// Every element named exactly "COMPONENT" or "COLLECTION" whose parent is named exactly R,
// anywhere below `top`, in document order: a component named like the root has its wrappers
// selected too. `skip_a` and `skip_b` are subtrees known to hold none (the domain sections).
std::vector<pugi::xml_node> SelectRootWrappers(pugi::xml_node top, const std::string& root_name,
                                               pugi::xml_node skip_a = {}, pugi::xml_node skip_b = {});

// The first element named exactly R below `top` (itself included), as "//R" finds it; empty when
// none.
pugi::xml_node SelectFirstNamed(pugi::xml_node top, const std::string& root_name);

}  // namespace varnex
