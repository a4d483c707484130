// varnex: inspect and transform transport documents from a shell.
#include <iostream>
#include <string>

#include "cli/demo.hpp"
#include "varnex/automation_error.hpp"

namespace {

int Usage(std::ostream& out, int status) {
  out << "usage: varnex <command>\n"
         "\n"
         "commands:\n"
         "  demo    walk through a typical exchange on a built-in sample\n"
         "  help    show this text\n";
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string command = argc > 1 ? argv[1] : "";
  try {
    if (command == "demo") return varnex::cli::RunDemo(std::cout);
    if (command == "help" || command == "--help" || command == "-h") return Usage(std::cout, 0);
  } catch (const varnex::AutomationError& error) {
    std::cerr << "varnex: error " << error.number() << " (" << error.source() << "): " << error.description() << "\n";
    return 1;
  }
  return Usage(std::cerr, 2);
}
