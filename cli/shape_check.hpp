// Whether a returned document has the shape of the own one, as copying values back by position
// needs: the same components with the same names at the same positions, the same number of
// properties each.
#pragma once

#include <string>

#include "varnex/transport.hpp"

namespace varnex::cli {

// The first difference, described with its path ("/ORDER/LINES: 3 components here, 2 in FILE");
// "" when the shapes match.
std::string FirstShapeDifference(Transport& own, Transport& returned);

}  // namespace varnex::cli
