// varnex: inspect and transform transport documents from a shell.
#include <iostream>
#include <string>
#include <vector>

#include "cli/commands.hpp"
#include "cli/demo.hpp"
#include "varnex/automation_error.hpp"

namespace {

int Usage(std::ostream& out, int status) {
  out << "usage: varnex <command> [arguments]\n"
         "\n"
         "FILE may be - for standard input.\n"
         "\n"
         "commands:\n"
         "  demo                         walk through a typical exchange on a built-in sample\n"
         "  tree FILE                    show the components of a document with their properties\n"
         "  generate full|short|medium FILE\n"
         "                               give the document out whole, reduced to its changes, or\n"
         "                               without its domain sections\n"
         "  merge INCOMING FILE          add the components, links and domains of INCOMING to FILE\n"
         "  update FILE RETURNED         copy property values back from a returned document\n"
         "  table FILE                   show the first collection of a document as a table\n"
         "  help                         show this text\n";
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string command = argc > 1 ? argv[1] : "";
  const std::vector<std::string> args(argv + (argc > 1 ? 2 : 1), argv + argc);
  try {
    if (command == "demo") return varnex::cli::RunDemo(std::cout);
    if (varnex::cli::IsDocumentCommand(command)) return varnex::cli::RunDocumentCommand(command, args, std::cout, std::cerr);
    if (command == "help" || command == "--help" || command == "-h") return Usage(std::cout, 0);
  } catch (const varnex::AutomationError& error) {
    std::cerr << "varnex: error " << error.number() << " (" << error.source() << "): " << error.description() << "\n";
    return 1;
  }
  return Usage(std::cerr, 2);
}
