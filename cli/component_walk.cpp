#include "cli/component_walk.hpp"

#include <vector>

namespace varnex::cli {

void WalkComponents(Transport& transport, Long top,
                    const std::function<void(const Child& child, const std::string& path, int depth)>& visit) {
  struct Level {
    std::vector<Child> children;
    std::size_t next;
    std::size_t path_length;  // the parent's path
  };
  std::string path;
  std::vector<Level> stack;
  stack.push_back({ChildrenOf(transport, top), 0, 0});
  while (!stack.empty()) {
    Level& level = stack.back();
    if (level.next == level.children.size()) {
      path.resize(level.path_length);
      stack.pop_back();
      continue;
    }
    const Child& child = level.children[level.next++];
    path.resize(level.path_length);
    path += '/';
    path += child.step;
    visit(child, path, static_cast<int>(stack.size()));
    // Handle 0 stands for a position without a component of its own: nothing to descend into.
    if (child.handle != 0) {
      const std::size_t length = path.size();
      stack.push_back({ChildrenOf(transport, child.handle), 0, length});
    }
  }
}

}  // namespace varnex::cli
