// varnex changes FILE [--format text|json] [--exit-code]: what the document would send, readable:
// every new, modified and deleted component by path, and every marked property with its earlier
// value. Written as the walk finds them.
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/commands.hpp"
#include "cli/component_walk.hpp"
#include "cli/document_loader.hpp"
#include "cli/failures.hpp"
#include "cli/output.hpp"
#include "cli/status_names.hpp"
#include "cli/text_formats.hpp"

namespace varnex::cli {
namespace {

struct ChangesOptions {
  std::string file;
  std::string format = "text";
  bool exit_code = false;
  std::string output;
};

// The properties of the component that carry a mark. Those of a new component are new with it
// and not listed one by one.
std::vector<PropertyInfo> MarkedProperties(Transport& transport, const Child& component) {
  std::vector<PropertyInfo> changes;
  if (component.handle == 0 || component.status == csNew) return changes;
  for (PropertyInfo property : transport.Properties(component.handle)) {
    if (property.status == csModified || property.status == csNew || property.status == csDeleted) {
      changes.push_back(std::move(property));
    }
  }
  return changes;
}

void WriteText(const Child& component, const std::string& path, const std::vector<PropertyInfo>& properties,
               std::ostream& out) {
  if (component.status != csNormal) {
    std::string word(StatusName(component.status));
    for (char& c : word) c = static_cast<char>(c - 'A' + 'a');
    word.resize(9, ' ');
    out << word << path << '\n';
  }
  for (const PropertyInfo& property : properties) {
    out << "  " << path << '/' << property.name << ": ";
    if (property.status == csModified) {
      out << property.original << " -> " << property.value << '\n';
    } else {
      out << '(' << (property.status == csNew ? "new" : "deleted") << ") " << property.value << '\n';
    }
  }
}

void WriteJson(const Child& component, const std::string& path, const std::vector<PropertyInfo>& properties,
               bool first, std::ostream& out) {
  out << (first ? "\n" : ",\n") << "{\"path\":";
  WriteJsonString(out, path);
  out << ",\"status\":\"" << StatusName(component.status) << "\",\"properties\":[";
  for (std::size_t i = 0; i < properties.size(); ++i) {
    const PropertyInfo& property = properties[i];
    out << (i > 0 ? "," : "") << "{\"name\":";
    WriteJsonString(out, property.name);
    out << ",\"status\":\"" << StatusName(property.status) << "\",\"original\":";
    WriteJsonString(out, property.original);
    out << ",\"value\":";
    WriteJsonString(out, property.value);
    out << '}';
  }
  out << "]}";
}

int RunChanges(const ChangesOptions& options) {
  const std::unique_ptr<Transport> transport = LoadDocument(options.file);
  Output output(options.output);
  std::ostream& out = output.stream();
  const bool json = options.format == "json";
  long changed = 0;
  if (json) out << '[';
  WalkComponents(*transport, 0, [&](const Child& component, const std::string& path, int) {
    const std::vector<PropertyInfo> properties = MarkedProperties(*transport, component);
    if (component.status == csNormal && properties.empty()) return;
    if (json) {
      WriteJson(component, path, properties, changed == 0, out);
    } else {
      WriteText(component, path, properties, out);
    }
    ++changed;
  });
  if (json) out << (changed > 0 ? "\n]\n" : "]\n");
  output.Finish();
  return options.exit_code && changed > 0 ? kExitFailure : 0;
}

}  // namespace

void AddChangesCommand(CLI::App& app, Action& action) {
  auto options = std::make_shared<ChangesOptions>();
  CLI::App* command = app.add_subcommand("changes", "list what the document would send: marked components and properties");
  command->add_option("FILE", options->file, "the document (- for standard input)")->required();
  command->add_option("--format", options->format, "text or json")->check(CLI::IsMember({"text", "json"}));
  command->add_flag("--exit-code", options->exit_code, "exit 1 when there are changes");
  AddOutputOption(*command, options->output);
  command->callback([&action, options] { action = [options] { return RunChanges(*options); }; });
}

}  // namespace varnex::cli
