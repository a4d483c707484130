// Paths that name components the way people read them: "/ORDER/LINES/LINE[2]". A step is the
// component's name, with its 1-based position among the siblings of that name when the name
// occurs more than once under the same parent. Children count in the order GetCompChild lists
// them (live ones, then deleted ones).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "varnex/transport.hpp"

namespace varnex::cli {

// One child of a component, as the tool shows it.
struct Child {
  Long handle;
  std::string name;
  enComponentStatus status;
  enComponentType type;
  std::string step;  // "LINE" or "LINE[2]"
};

// The children of `parent` (0: the root), deleted ones included.
std::vector<Child> ChildrenOf(Transport& transport, Long parent);

// The path steps for siblings of the given names, in their order.
std::vector<std::string> StepsFor(const std::vector<std::string>& names);

// The handle that a path names ("/" alone: the root, 0). Names compare without regard to case.
// A Failure names the first step that matches nothing.
Long ResolvePath(Transport& transport, std::string_view path);

}  // namespace varnex::cli
