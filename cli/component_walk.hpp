// A depth-first walk over the components of a loaded document, parents before their children.
#pragma once

#include <functional>
#include <string>

#include "cli/component_path.hpp"

namespace varnex::cli {

// Calls `visit` for every component and collection under `top`, with its path and its depth
// (1 for the children of `top`). The walk keeps an explicit stack and one path buffer, so
// documents may nest far deeper than the native stack allows.
void WalkComponents(Transport& transport, Long top,
                    const std::function<void(const Child& child, const std::string& path, int depth)>& visit);

}  // namespace varnex::cli
