// Reading a whole table through an OLE DB simple provider, as a bound control does, for showing
// it as text.
#pragma once

#include <string>
#include <vector>

#include "varnex/oledb_simple_provider.hpp"

namespace varnex {

// Every cell of the provider, row 0 (the column names) first, each read with getVariant and
// turned into text (a Boolean as "True" or "False", Empty as "").
std::vector<std::vector<std::string>> ReadProviderTable(OLEDBSimpleProvider& provider);

// The same cells laid out as lines of text, each column padded to its widest cell and columns
// separated by " | ", with a rule under the header row.
std::string FormatProviderTable(OLEDBSimpleProvider& provider);

}  // namespace varnex
