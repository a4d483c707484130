// An outside program built against the installed package.
#include <iostream>

#include <varnex/varnex.hpp>

int main() {
  varnex::Transport transport;
  transport.AddComponent(0, "site");
  std::cout << transport.TransportDoc() << "\n";
  return transport.CountCompChildren(0) == 1 ? 0 : 1;
}
