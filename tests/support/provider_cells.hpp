// Every cell of a provider as text, row 0 (the column names) first, read as a bound control
// reads them.
#pragma once

#include <string>
#include <vector>

#include "varnex/oledb_simple_provider.hpp"

namespace varnex::testing {

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
