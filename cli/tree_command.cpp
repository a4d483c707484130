// varnex tree FILE [--all] [--color=auto|always|never]
#include <memory>

#include <CLI/CLI.hpp>

#include "cli/commands.hpp"
#include "cli/document_loader.hpp"
#include "cli/output.hpp"
#include "cli/tree_printer.hpp"

namespace varnex::cli {
namespace {

struct TreeOptions {
  std::string file;
  bool all = false;
  std::string color = "auto";
  std::string output;
};

int RunTree(const TreeOptions& options) {
  const std::unique_ptr<Transport> transport = LoadDocument(options.file);
  Output output(options.output);
  TreeStyle style;
  style.all = options.all;
  style.color = options.color == "always" || (options.color == "auto" && output.IsTerminal());
  PrintTree(*transport, 0, output.stream(), style);
  output.Finish();
  return 0;
}

}  // namespace

void AddTreeCommand(CLI::App& app, Action& action) {
  auto options = std::make_shared<TreeOptions>();
  CLI::App* command = app.add_subcommand("tree", "show the components with handles, statuses and properties");
  command->add_option("FILE", options->file, "the document (- for standard input)")->required();
  command->add_flag("--all", options->all, "add attributes, attachments, prototypes, domains and links");
  command->add_option("--color", options->color, "colour the marks: auto (on a terminal), always or never")
      ->check(CLI::IsMember({"auto", "always", "never"}));
  AddOutputOption(*command, options->output);
  command->callback([&action, options] { action = [options] { return RunTree(*options); }; });
}

}  // namespace varnex::cli
