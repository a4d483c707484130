// An outside program built against the installed package: builds a document, moves its
// Transport, and walks it with the ranges.
#include <iostream>
#include <utility>

#include <varnex/varnex.hpp>

#ifdef PUGIXML_VERSION
#error "the umbrella header must not bring in pugixml"
#endif

namespace {

varnex::Transport MakeSite() {
  varnex::Transport transport;
  const varnex::Long site = transport.AddComponent(0, "site", varnex::csNew);
  transport.AddCompProperty(site, "name", "North");
  const varnex::Long visits = transport.AddCollection(site, "visits");
  transport.AddComponent(visits, "visit");
  return transport;  // moved out
}

void Walk(varnex::Transport& transport, varnex::Long parent, int depth) {
  for (const varnex::ChildInfo& child : transport.Children(parent)) {
    std::cout << std::string(depth * 2, ' ') << child.name << " " << to_string(child.status) << "\n";
    for (const varnex::PropertyInfo& property : transport.Properties(child.handle)) {
      std::cout << std::string(depth * 2 + 2, ' ') << property.name << "=" << property.value << "\n";
    }
    Walk(transport, child.handle, depth + 1);
  }
}

}  // namespace

int main() {
  varnex::Transport transport = MakeSite();
  std::cout << transport.TransportDoc() << "\n";
  Walk(transport, 0, 0);
  return transport.CountCompChildren(0) == 1 ? 0 : 1;
}
