#include "cli/commands.hpp"

#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <stdexcept>

#include "binding/provider_table.hpp"
#include "cli/tree_printer.hpp"
#include "varnex/varnex.hpp"

namespace varnex::cli {
namespace {

std::string ReadText(const std::string& path) {
  if (path == "-") return std::string(std::istreambuf_iterator<char>(std::cin), {});
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

// A Transport holding the document of the file.
std::unique_ptr<Transport> Loaded(const std::string& path) {
  auto transport = std::make_unique<Transport>();
  transport->TransportDoc(ReadText(path));
  return transport;
}

int Tree(const std::vector<std::string>& args, std::ostream& out) {
  PrintTree(*Loaded(args.at(0)), 0, out);
  return 0;
}

int Generate(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  const std::string& mode = args.at(0);
  const enTransportMode tm = mode == "full" ? tmFull : mode == "short" ? tmShort : mode == "medium" ? tmMedium
                                                                                                    : enTransportMode(-1);
  if (tm == enTransportMode(-1)) {
    err << "varnex: the mode is full, short or medium, not '" << mode << "'\n";
    return 2;
  }
  out << Loaded(args.at(1))->GenerateTransportDoc(tm) << "\n";
  return 0;
}

int Merge(const std::vector<std::string>& args, std::ostream& out) {
  auto transport = Loaded(args.at(1));
  transport->MergeDocument(ReadText(args.at(0)), 0);
  out << transport->TransportDoc() << "\n";
  return 0;
}

int Update(const std::vector<std::string>& args, std::ostream& out) {
  auto transport = Loaded(args.at(0));
  transport->UpdateDocument(ReadText(args.at(1)));
  out << transport->TransportDoc() << "\n";
  return 0;
}

int Table(const std::vector<std::string>& args, std::ostream& out) {
  auto collection = std::make_shared<DataCollection>();
  collection->Data(ReadText(args.at(0)));
  DataCollectionSource source;
  source.Data(collection);
  source.DataTypes({});
  out << FormatProviderTable(*source.GetDataMember());
  return 0;
}

struct Command {
  const char* name;
  std::size_t arguments;
};
constexpr Command kCommands[] = {{"tree", 1}, {"generate", 2}, {"merge", 2}, {"update", 2}, {"table", 1}};

}  // namespace

bool IsDocumentCommand(const std::string& command) {
  for (const Command& known : kCommands) {
    if (command == known.name) return true;
  }
  return false;
}

int RunDocumentCommand(const std::string& command, const std::vector<std::string>& args, std::ostream& out,
                       std::ostream& err) {
  for (const Command& known : kCommands) {
    if (command == known.name && args.size() != known.arguments) {
      err << "varnex: '" << command << "' takes " << known.arguments << " argument(s)\n";
      return 2;
    }
  }
  try {
    if (command == "tree") return Tree(args, out);
    if (command == "generate") return Generate(args, out, err);
    if (command == "merge") return Merge(args, out);
    if (command == "update") return Update(args, out);
    if (command == "table") return Table(args, out);
  } catch (const std::runtime_error& error) {
    err << "varnex: " << error.what() << "\n";
    return 1;
  }
  return 2;
}

}  // namespace varnex::cli
