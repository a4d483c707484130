// Whether a returned document has the shape of the own one, as copying values back needs: the
// library pairs components and properties by their position in the text, so both must hold the
// same components with the same names at the same positions, and the same number of properties
// each.
#pragma once

#include <string>

namespace varnex::cli {

// The first difference, in the order of the texts, described with its path
// ("/ORDER/LINES: 3 components in the returned document, 4 in the own"); "" when the shapes match.
// Both texts are well-formed transport documents; paths count siblings in the order of the text.
std::string FirstShapeDifference(const std::string& own, const std::string& returned);

}  // namespace varnex::cli
