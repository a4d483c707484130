// Prints the components of a transport document as an indented tree with their properties.
#pragma once

#include <ostream>

#include "varnex/transport.hpp"

namespace varnex::cli {

struct TreeStyle {
  bool all = false;    // attributes, attachments, prototypes, domains and links too
  bool color = false;  // NEW, MODIFIED and DELETED in colour (for a terminal)
};

// Every component and collection under `parent`, depth first, with handle, status and properties.
void PrintTree(Transport& transport, Long parent, std::ostream& out, const TreeStyle& style = {});

}  // namespace varnex::cli
