#include "cli/tree_printer.hpp"

#include <string>
#include <vector>

namespace varnex::cli {
namespace {

const char* StatusWord(enComponentStatus status) {
  switch (status) {
    case csModified: return " [modified]";
    case csNew: return " [new]";
    case csDeleted: return " [deleted]";
    default: return "";
  }
}

void PrintProperties(Transport& transport, Long handle, const std::string& indent, std::ostream& out) {
  const Long count = transport.CountCompProperties(handle);
  for (Long p = 1; p <= count; ++p) {
    std::string value, original;
    enComponentStatus status = csNormal;
    const std::string name = transport.GetCompProperty(handle, p, value, status, original);
    out << indent << "    " << name << " = \"" << value << "\"" << StatusWord(status);
    if (!original.empty()) out << " (was \"" << original << "\")";
    out << "\n";
  }
}

}  // namespace

void PrintTree(Transport& transport, Long parent, std::ostream& out, int depth) {
  // An explicit stack: documents may nest far deeper than the native stack allows.
  struct Pending {
    Long parent;
    Long next;  // the child position to print next
    int depth;
  };
  std::vector<Pending> stack{{parent, 1, depth}};
  while (!stack.empty()) {
    Pending& level = stack.back();
    if (level.next > transport.CountCompChildren(level.parent)) {
      stack.pop_back();
      continue;
    }
    std::string name;
    enComponentStatus status = csNormal;
    enComponentType type = ctComponent;
    const Long handle = transport.GetCompChild(level.parent, level.next++, name, status, type);
    const std::string indent(static_cast<std::size_t>(level.depth) * 2, ' ');
    out << indent << (type == ctcollection ? "collection " : "component ") << name << " #" << handle
        << StatusWord(status) << "\n";
    PrintProperties(transport, handle, indent, out);
    // Handle 0 stands for a position without a component of its own: nothing to descend into.
    if (handle != 0) stack.push_back({handle, 1, level.depth + 1});
  }
}

}  // namespace varnex::cli
