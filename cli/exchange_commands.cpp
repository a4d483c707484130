// The commands that run one exchange operation of the library and print the document:
// generate, merge, update, reset.
#include <memory>
#include <string>

#include <CLI/CLI.hpp>
#include <fmt/format.h>
#include <pugixml.hpp>

#include "cli/commands.hpp"
#include "cli/document_loader.hpp"
#include "cli/failures.hpp"
#include "cli/input_file.hpp"
#include "cli/output.hpp"
#include "cli/shape_check.hpp"

namespace varnex::cli {
namespace {

struct ExchangeOptions {
  std::string file;
  std::string other;  // INCOMING or RETURNED
  std::string mode = "full";
  bool indent = false;
  Long parent = 0;
  bool check = false;
  std::string output;
};

// Writes the document text, indented when asked.
void WriteDocument(const std::string& text, bool indent, std::ostream& out) {
  if (!indent) {
    out << text << '\n';
    return;
  }
  pugi::xml_document document;
  document.load_buffer(text.data(), text.size(), pugi::parse_default | pugi::parse_ws_pcdata_single);
  document.save(out, "  ", pugi::format_indent | pugi::format_no_declaration);
}

int PrintDocument(Transport& transport, const ExchangeOptions& options, enTransportMode mode = tmFull) {
  const std::string text = transport.GenerateTransportDoc(mode);
  Output output(options.output);
  WriteDocument(text, options.indent, output.stream());
  output.Finish();
  return 0;
}

int RunGenerate(const ExchangeOptions& options) {
  const enTransportMode mode = options.mode == "short" ? tmShort : options.mode == "medium" ? tmMedium : tmFull;
  return PrintDocument(*LoadDocument(options.file), options, mode);
}

int RunMerge(const ExchangeOptions& options) {
  RequireStandardInputOnce({options.file, options.other});
  const std::unique_ptr<Transport> transport = LoadDocument(options.file);
  transport->MergeDocument(ReadIncomingText(options.other, *transport), options.parent);
  return PrintDocument(*transport, options);
}

int RunUpdate(const ExchangeOptions& options) {
  RequireStandardInputOnce({options.file, options.other});
  const std::unique_ptr<Transport> transport = LoadDocument(options.file);
  const std::string returned = ReadIncomingText(options.other, *transport);
  if (options.check) {
    const std::string difference = FirstShapeDifference(transport->TransportDoc(), returned);
    if (!difference.empty()) {
      throw Failure(fmt::format("{} does not fit {}: {}; nothing was updated", DisplayName(options.other),
                                DisplayName(options.file), difference));
    }
  }
  transport->UpdateDocument(returned);
  return PrintDocument(*transport, options);
}

int RunReset(const ExchangeOptions& options) {
  const std::unique_ptr<Transport> transport = LoadDocument(options.file);
  transport->ResetStatus();
  return PrintDocument(*transport, options);
}

// A command of this file: FILE (and a second document when `other` names it), --indent, -o.
std::shared_ptr<ExchangeOptions> AddExchangeCommand(CLI::App& app, Action& action, const char* name,
                                                    const char* description, const char* other,
                                                    int (*run)(const ExchangeOptions&), CLI::App** added) {
  auto options = std::make_shared<ExchangeOptions>();
  CLI::App* command = app.add_subcommand(name, description);
  command->add_option("FILE", options->file, "the document (- for standard input)")->required();
  if (other != nullptr) command->add_option(other, options->other, "the other document (- for standard input)")->required();
  command->add_flag("--indent", options->indent, "indent the document for reading");
  AddOutputOption(*command, options->output);
  command->callback([&action, options, run] { action = [options, run] { return run(*options); }; });
  *added = command;
  return options;
}

}  // namespace

void AddGenerateCommand(CLI::App& app, Action& action) {
  CLI::App* command = nullptr;
  auto options = AddExchangeCommand(app, action, "generate", "give the document out whole (full), its changes (short) "
                                    "or without domain sections (medium)", nullptr, RunGenerate, &command);
  command->add_option("--mode", options->mode, "full, short or medium")->check(CLI::IsMember({"full", "short", "medium"}));
}

void AddMergeCommand(CLI::App& app, Action& action) {
  CLI::App* command = nullptr;
  auto options = AddExchangeCommand(app, action, "merge", "add the components, links and domains of INCOMING to FILE",
                                    "INCOMING", RunMerge, &command);
  command->add_option("--parent", options->parent, "the handle to merge under (0: the root)");
}

void AddUpdateCommand(CLI::App& app, Action& action) {
  CLI::App* command = nullptr;
  auto options = AddExchangeCommand(app, action, "update", "copy property values back from a returned document",
                                    "RETURNED", RunUpdate, &command);
  command->add_flag("--check", options->check, "refuse, changing nothing, when RETURNED has another shape");
}

void AddResetCommand(CLI::App& app, Action& action) {
  CLI::App* command = nullptr;
  AddExchangeCommand(app, action, "reset", "clear the change marks after an exchange", nullptr, RunReset, &command);
}

}  // namespace varnex::cli
