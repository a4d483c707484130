// varnex diff OLD NEW [--format text|json] [--exit-code]: what differs between two transport
// documents, by path: components added and removed (pairing by path), component statuses, and
// properties added, removed, or whose values or statuses differ (pairing by name).
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/commands.hpp"
#include "cli/component_path.hpp"
#include "cli/document_loader.hpp"
#include "cli/failures.hpp"
#include "cli/input_file.hpp"
#include "cli/output.hpp"
#include "cli/status_names.hpp"
#include "cli/text_formats.hpp"

namespace varnex::cli {
namespace {

struct DiffOptions {
  std::string old_file;
  std::string new_file;
  std::string format = "text";
  bool exit_code = false;
  std::string output;
};

std::vector<PropertyInfo> PropertiesOf(Transport& transport, Long handle) {
  const PropertyRange range = transport.Properties(handle);
  return {range.begin(), range.end()};
}

// Writes each difference as it is found, as text lines or as the objects of a JSON array.
class DifferenceWriter {
 public:
  DifferenceWriter(std::ostream& out, bool json) : out_(out), json_(json) {
    if (json_) out_ << '[';
  }
  void Component(char sign, const std::string& path) {
    if (Begin("component", sign == '+' ? "added" : "removed", path)) return End();
    out_ << sign << ' ' << path << '\n';
  }
  void ComponentStatus(const std::string& path, enComponentStatus before, enComponentStatus after) {
    if (Begin("component", "status", path)) return Pair(StatusName(before), StatusName(after));
    out_ << "~ " << path << ": status " << StatusName(before) << " -> " << StatusName(after) << '\n';
  }
  void PropertyPresence(char sign, const std::string& path, const std::string& value) {
    if (Begin("property", sign == '+' ? "added" : "removed", path)) {
      out_ << (sign == '+' ? ",\"new\":" : ",\"old\":");
      WriteJsonString(out_, value);
      return End();
    }
    out_ << sign << ' ' << path << ": " << value << '\n';
  }
  void PropertyValue(const std::string& path, const std::string& before, const std::string& after) {
    if (Begin("property", "value", path)) return Pair(before, after);
    out_ << "~ " << path << ": " << before << " -> " << after << '\n';
  }
  void PropertyStatus(const std::string& path, enComponentStatus before, enComponentStatus after) {
    if (Begin("property", "status", path)) return Pair(StatusName(before), StatusName(after));
    out_ << "~ " << path << ": status " << StatusName(before) << " -> " << StatusName(after) << '\n';
  }
  long count() const { return count_; }
  void Finish() {
    if (json_) out_ << (count_ > 0 ? "\n]\n" : "]\n");
  }

 private:
  // Counts the difference; for JSON opens its object and answers true.
  bool Begin(const char* kind, const char* change, const std::string& path) {
    ++count_;
    if (!json_) return false;
    out_ << (count_ > 1 ? ",\n" : "\n") << "{\"kind\":\"" << kind << "\",\"change\":\"" << change << "\",\"path\":";
    WriteJsonString(out_, path);
    return true;
  }
  void Pair(std::string_view before, std::string_view after) {
    out_ << ",\"old\":";
    WriteJsonString(out_, before);
    out_ << ",\"new\":";
    WriteJsonString(out_, after);
    End();
  }
  void End() { out_ << '}'; }

  std::ostream& out_;
  bool json_;
  long count_ = 0;
};

void CompareProperties(Transport& before, Long old_handle, Transport& after, Long new_handle, const std::string& path,
                       DifferenceWriter& writer) {
  const std::vector<PropertyInfo> old_properties = PropertiesOf(before, old_handle);
  const std::vector<PropertyInfo> new_properties = PropertiesOf(after, new_handle);
  std::unordered_map<std::string, const PropertyInfo*> by_name;
  for (const PropertyInfo& property : new_properties) by_name.try_emplace(property.name, &property);
  std::unordered_map<std::string, bool> old_names;
  for (const PropertyInfo& old_property : old_properties) {
    if (!old_names.try_emplace(old_property.name, true).second) continue;  // a repeated name: its first counts
    const std::string property_path = path + "/" + old_property.name;
    const auto found = by_name.find(old_property.name);
    if (found == by_name.end()) {
      writer.PropertyPresence('-', property_path, old_property.value);
      continue;
    }
    if (old_property.value != found->second->value) {
      writer.PropertyValue(property_path, old_property.value, found->second->value);
    }
    if (old_property.status != found->second->status) {
      writer.PropertyStatus(property_path, old_property.status, found->second->status);
    }
  }
  for (const PropertyInfo& new_property : new_properties) {
    if (old_names.try_emplace(new_property.name, true).second) {
      writer.PropertyPresence('+', path + "/" + new_property.name, new_property.value);
    }
  }
}

// Walks both trees depth first, in the order of the earlier document: a pair of components is
// compared (status, properties) when it is reached, then its children are paired by path step.
void CompareDocuments(Transport& before, Transport& after, DifferenceWriter& writer) {
  struct Pair {
    Child old_child;
    Child new_child;
    std::string path;
  };
  const Child root{0, "", csNormal, ctComponent, ""};
  std::vector<Pair> pending{{root, root, ""}};
  while (!pending.empty()) {
    const Pair pair = std::move(pending.back());
    pending.pop_back();
    if (!pair.path.empty()) {
      if (pair.old_child.status != pair.new_child.status) {
        writer.ComponentStatus(pair.path, pair.old_child.status, pair.new_child.status);
      }
      CompareProperties(before, pair.old_child.handle, after, pair.new_child.handle, pair.path, writer);
      // Handle 0 stands for a position without a component of its own: nothing to descend into.
      if (pair.old_child.handle == 0 || pair.new_child.handle == 0) continue;
    }
    const std::vector<Child> old_children = ChildrenOf(before, pair.old_child.handle);
    const std::vector<Child> new_children = ChildrenOf(after, pair.new_child.handle);
    std::unordered_map<std::string, const Child*> by_step;
    for (const Child& child : new_children) by_step.emplace(child.step, &child);
    std::vector<Pair> below;
    for (const Child& old_child : old_children) {
      const std::string path = pair.path + "/" + old_child.step;
      const auto found = by_step.find(old_child.step);
      if (found == by_step.end()) {
        writer.Component('-', path);
        continue;
      }
      below.push_back({old_child, *found->second, path});
      by_step.erase(found);
    }
    for (const Child& new_child : new_children) {
      if (by_step.count(new_child.step) != 0) writer.Component('+', pair.path + "/" + new_child.step);
    }
    // Reversed onto the stack, so that the pairs come out in order.
    for (auto it = below.rbegin(); it != below.rend(); ++it) pending.push_back(std::move(*it));
  }
}

int RunDiff(const DiffOptions& options) {
  RequireStandardInputOnce({options.old_file, options.new_file});
  const std::unique_ptr<Transport> before = LoadDocument(options.old_file);
  const std::unique_ptr<Transport> after = LoadDocument(options.new_file);
  Output output(options.output);
  DifferenceWriter writer(output.stream(), options.format == "json");
  CompareDocuments(*before, *after, writer);
  writer.Finish();
  output.Finish();
  return options.exit_code && writer.count() > 0 ? kExitFailure : 0;
}

}  // namespace

void AddDiffCommand(CLI::App& app, Action& action) {
  auto options = std::make_shared<DiffOptions>();
  CLI::App* command = app.add_subcommand("diff", "show what differs between two transport documents, by path");
  command->add_option("OLD", options->old_file, "the earlier document (- for standard input)")->required();
  command->add_option("NEW", options->new_file, "the later document (- for standard input)")->required();
  command->add_option("--format", options->format, "text or json")->check(CLI::IsMember({"text", "json"}));
  command->add_flag("--exit-code", options->exit_code, "exit 1 when the documents differ");
  AddOutputOption(*command, options->output);
  command->callback([&action, options] { action = [options] { return RunDiff(*options); }; });
}

}  // namespace varnex::cli
