// Prints the components of a transport document as an indented tree with their properties.
#pragma once

#include <ostream>

#include "varnex/transport.hpp"

namespace varnex::cli {

// Every component and collection under `parent`, depth first, with handle, status and properties.
void PrintTree(Transport& transport, Long parent, std::ostream& out, int depth = 0);

}  // namespace varnex::cli
