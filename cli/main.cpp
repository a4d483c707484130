// varnex: inspect and transform transport documents from a shell.
#include <iostream>
#include <new>
#include <string>

#include <CLI/CLI.hpp>

#include "cli/commands.hpp"
#include "cli/failures.hpp"
#include "varnex/automation_error.hpp"

namespace {

using varnex::cli::kExitFailure;
using varnex::cli::kExitUsage;

// The subcommand that the command line chose, if it got that far.
const CLI::App* ChosenCommand(const CLI::App& app) {
  for (const CLI::App* command : app.get_subcommands({})) {
    if (command->parsed()) return command;
  }
  return nullptr;
}

// One line saying what was wrong and where to find help.
std::string UsageLine(const CLI::App* app, const CLI::Error& error) {
  const CLI::App* command = ChosenCommand(*app);
  std::string what = error.what();
  if (command == nullptr && !app->remaining().empty()) {
    const std::string word = app->remaining().front();
    what = (word.starts_with("-") ? "unknown option '" : "unknown command '") + word + "'";
  } else if (command == nullptr && error.get_name() == "RequiredError") {
    what = "a command is required";
  }
  const std::string help = command == nullptr ? "varnex --help" : "varnex " + command->get_name() + " --help";
  return "varnex: " + what + " (see '" + help + "')\n";
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  CLI::App app{"varnex: inspect and transform transport documents. FILE may be - for standard input "
               "(read at most once per command).",
               "varnex"};
  app.set_version_flag("--version", "varnex " VARNEX_VERSION);
  app.require_subcommand(1);
  app.failure_message(UsageLine);
  varnex::cli::Action action;
  varnex::cli::AddCommands(app, action);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kExitUsage;
  }
  try {
    return action();
  } catch (const varnex::AutomationError& error) {
    std::cout.flush();
    std::cerr << "varnex: " << varnex::cli::DescribeAutomationError(error) << std::endl;
  } catch (const varnex::cli::UsageError& error) {
    std::cout.flush();
    std::cerr << "varnex: " << error.what() << " (see 'varnex --help')" << std::endl;
    return kExitUsage;
  } catch (const varnex::cli::Failure& error) {
    std::cout.flush();
    std::cerr << "varnex: " << error.what() << std::endl;
  } catch (const std::bad_alloc&) {
    std::cout.flush();
    std::cerr << "varnex: out of memory" << std::endl;
  }
  return kExitFailure;
}
