// varnex table FILE [--collection PATH] [--fields A,B] [--bool COL,...] [--format text|csv|json]:
// a collection read through a DataCollectionSource and its provider, as a bound control reads it.
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <fmt/format.h>

#include "cli/collection_view.hpp"
#include "cli/commands.hpp"
#include "cli/component_path.hpp"
#include "cli/upper_name.hpp"
#include "cli/document_loader.hpp"
#include "cli/failures.hpp"
#include "cli/input_file.hpp"
#include "cli/output.hpp"
#include "cli/provider_table.hpp"
#include "varnex/data_collection_source.hpp"

namespace varnex::cli {
namespace {

struct TableOptions {
  std::string file;
  std::string collection;
  std::string fields;
  std::vector<std::string> boolean_columns;
  std::string format = "text";
  std::string output;
};

// The collection the options name: --collection, or the first one under the root.
Long ChosenCollection(Transport& transport, const TableOptions& options) {
  if (options.collection.empty()) {
    const Long first = FirstCollection(transport);
    if (first == 0) {
      throw Failure(fmt::format("{}: no collection under the root; name one with --collection",
                                DisplayName(options.file)));
    }
    return first;
  }
  const Long handle = ResolvePath(transport, options.collection);
  std::string name;
  enComponentStatus status = csNormal;
  enComponentType type = ctComponent;
  if (handle == 0 || (transport.GetComponent(handle, name, status, type), type != ctcollection)) {
    throw Failure(fmt::format("{} is not a collection", options.collection));
  }
  return handle;
}

// The column names, upper-cased, as a provider over the source shows them in its header row.
std::vector<std::string> ColumnNames(DataCollectionSource& source) {
  source.DataTypes({});
  const std::shared_ptr<OLEDBSimpleProvider> probe = source.GetDataMember();
  std::vector<std::string> columns;
  for (Long column = 1; column <= probe->getColumnCount(); ++column) {
    columns.push_back(probe->getVariant(0, column, 0).AsString());
  }
  return columns;
}

// One type code per column: Boolean (11) for the columns named with --bool, String otherwise.
std::vector<Long> ColumnTypes(const std::vector<std::string>& columns, const std::vector<std::string>& booleans) {
  std::vector<Long> types(columns.size(), vbString);
  for (const std::string& wanted : booleans) {
    const auto found = std::find(columns.begin(), columns.end(), UpperName(wanted));
    if (found == columns.end()) throw UsageError(fmt::format("--bool: there is no column {}", wanted));
    types[static_cast<std::size_t>(found - columns.begin())] = vbBoolean;
  }
  return types;
}

int RunTable(const TableOptions& options) {
  const std::unique_ptr<Transport> transport = LoadDocument(options.file);
  auto view = std::make_shared<CollectionView>(*transport, ChosenCollection(*transport, options));
  DataCollectionSource source;
  source.Data(view);
  source.Fields(options.fields);
  source.DataTypes(ColumnTypes(ColumnNames(source), options.boolean_columns));
  const std::shared_ptr<OLEDBSimpleProvider> provider = source.GetDataMember();
  Output output(options.output);
  if (options.format == "csv") {
    WriteCsvTable(*provider, output.stream());
  } else if (options.format == "json") {
    WriteJsonTable(*provider, output.stream());
  } else {
    WriteTextTable(*provider, output.stream());
  }
  output.Finish();
  return 0;
}

}  // namespace

void AddTableCommand(CLI::App& app, Action& action) {
  auto options = std::make_shared<TableOptions>();
  CLI::App* command = app.add_subcommand("table", "show a collection as a table, through a data source and its provider");
  command->add_option("FILE", options->file, "the document (- for standard input)")->required();
  command->add_option("--collection", options->collection, "the collection's path, e.g. /SITE/VISITS (default: the "
                      "first collection under the root)");
  command->add_option("--fields", options->fields, "the columns, comma-separated (default: the first item's properties)");
  command->add_option("--bool", options->boolean_columns, "columns shown as True or False, comma-separated")
      ->delimiter(',');
  command->add_option("--format", options->format, "text, csv or json")->check(CLI::IsMember({"text", "csv", "json"}));
  AddOutputOption(*command, options->output);
  command->callback([&action, options] { action = [options] { return RunTable(*options); }; });
}

}  // namespace varnex::cli
