#include "cli/demo.hpp"

#include <string>

#include "varnex/varnex.hpp"

namespace varnex::cli {
namespace {

void PrintTree(Transport& transport, Long parent, int depth, std::ostream& out) {
  const Long count = transport.CountCompChildren(parent);
  for (Long k = 1; k <= count; ++k) {
    std::string name;
    enComponentStatus status = csNormal;
    enComponentType type = ctComponent;
    const Long handle = transport.GetCompChild(parent, k, name, status, type);
    out << std::string(static_cast<std::size_t>(depth) * 2, ' ') << (type == ctcollection ? "collection " : "component ")
        << name << " (handle " << handle << ")\n";
    PrintTree(transport, handle, depth + 1, out);
  }
}

}  // namespace

int RunDemo(std::ostream& out) {
  Transport transport;
  out << "A new transport document:\n" << transport.TransportDoc() << "\n\n";

  const Long site = transport.AddComponent(0, "Site", csNew);
  const Long visits = transport.AddCollection(site, "Visits");
  transport.AddComponent(visits, "Visit");
  transport.AddComponent(visits, "Visit");

  out << "Components, found through their handles:\n";
  PrintTree(transport, 0, 1, out);
  out << "\nThe whole document:\n" << transport.TransportDoc() << "\n";
  return 0;
}

}  // namespace varnex::cli
