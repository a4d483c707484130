// The table of the tool's commands.
#include <iostream>

#include <CLI/CLI.hpp>

#include "cli/commands.hpp"
#include "cli/demo.hpp"

namespace varnex::cli {

void AddDemoCommand(CLI::App& app, Action& action) {
  CLI::App* command = app.add_subcommand("demo", "walk through a typical exchange on a built-in sample");
  command->callback([&action] { action = [] { return RunDemo(std::cout); }; });
}

void AddCommands(CLI::App& app, Action& action) {
  constexpr void (*kCommands[])(CLI::App&, Action&) = {
      AddDemoCommand,     AddTreeCommand,     AddChangesCommand, AddDiffCommand,  AddValidateCommand,
      AddGenerateCommand, AddMergeCommand,    AddUpdateCommand,  AddResetCommand, AddTableCommand,
  };
  for (const auto add : kCommands) add(app, action);
}

}  // namespace varnex::cli
