// The commands of the varnex tool. Each Add...Command function adds one command with its
// options to the tool; when the command line chooses it, its callback sets the action to run.
#pragma once

#include <functional>

namespace CLI {
class App;
}

namespace varnex::cli {

// What the chosen command does once the command line is read; answers the exit status.
using Action = std::function<int()>;

void AddDemoCommand(CLI::App& app, Action& action);
void AddTreeCommand(CLI::App& app, Action& action);
void AddChangesCommand(CLI::App& app, Action& action);
void AddDiffCommand(CLI::App& app, Action& action);
void AddValidateCommand(CLI::App& app, Action& action);
void AddGenerateCommand(CLI::App& app, Action& action);
void AddMergeCommand(CLI::App& app, Action& action);
void AddUpdateCommand(CLI::App& app, Action& action);
void AddResetCommand(CLI::App& app, Action& action);
void AddTableCommand(CLI::App& app, Action& action);

// Every command above, in the order --help lists them.
void AddCommands(CLI::App& app, Action& action);

}  // namespace varnex::cli
