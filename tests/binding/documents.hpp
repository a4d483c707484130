// Transport documents for the binding tests, item collections loaded from them, and the cells a
// bound control reads from a provider.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/errors.hpp"
#include "varnex/data_collection.hpp"
#include "varnex/oledb_simple_provider.hpp"

namespace varnex::testing {

using Properties = std::vector<std::pair<std::string, std::string>>;

inline std::string Document(const std::string& body) { return "<TALVEN><DOMAIN/><PROPERTY_DOMAINS/>" + body + "</TALVEN>"; }

// A wrapper and its name element; `properties` as property elements, `more` after them.
inline std::string Wrapped(const std::string& wrapper, const std::string& name, const Properties& properties,
                           const std::string& attributes = "", const std::string& more = "") {
  std::string text = "<" + wrapper + "><" + name + attributes + "><PROPERTIES>";
  for (const auto& [property, value] : properties) text += "<" + property + ">" + value + "</" + property + ">";
  return text + "</PROPERTIES>" + more + "</" + name + "></" + wrapper + ">";
}
inline std::string Row(const Properties& properties, const std::string& attributes = "") {
  return Wrapped("COMPONENT", "ROW", properties, attributes);
}
inline std::string Rows(const std::string& name, const std::string& members) { return Wrapped("COLLECTION", name, {}, "", members); }

// An item collection loaded with a document of the given collection.
inline std::shared_ptr<DataCollection> Loaded(const std::string& collection) {
  auto data = std::make_shared<DataCollection>();
  data->Data(Document(collection));
  return data;
}

// People with a name, a code and an "active" flag.
inline std::shared_ptr<DataCollection> People() {
  return Loaded(Rows("PEOPLE", Row({{"Name", "Ann"}, {"Code", "A1"}, {"Active", "yes"}}) +
                                   Row({{"Name", "Bob"}, {"Code", "B2"}, {"Active", "no"}}) +
                                   Row({{"Name", "Cy"}, {"Code", "C3"}, {"Active", "TRUE"}})));
}

// Every cell of a provider as text, row 0 (the column names) first, read as a bound control
// reads them.
inline std::vector<std::vector<std::string>> ProviderCells(OLEDBSimpleProvider& provider) {
  std::vector<std::vector<std::string>> rows;
  for (Long row = 0; row <= provider.getRowCount(); ++row) {
    std::vector<std::string>& cells = rows.emplace_back();
    for (Long column = 1; column <= provider.getColumnCount(); ++column) {
      cells.push_back(provider.getVariant(row, column, 0).AsString());
    }
  }
  return rows;
}

}  // namespace varnex::testing
