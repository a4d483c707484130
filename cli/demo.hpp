// The walk through a typical exchange on a built-in sample.
#pragma once

#include <ostream>

namespace varnex::cli {

int RunDemo(std::ostream& out);

}  // namespace varnex::cli
