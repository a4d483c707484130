// A provider's table written out as a bound control reads it: row 0 holds the column names,
// rows 1 to getRowCount the values, each cell read with getVariant. Cells are read as they are
// written, never gathered into a copy of the table.
#pragma once

#include <ostream>

#include "varnex/oledb_simple_provider.hpp"

namespace varnex::cli {

// Lines of text, each column padded to its widest cell and columns separated by " | ", with a
// rule under the header row. The cells are read twice: once for the widths, once to write them.
void WriteTextTable(OLEDBSimpleProvider& provider, std::ostream& out);

// CSV (RFC 4180): the header record, then one record per row.
void WriteCsvTable(OLEDBSimpleProvider& provider, std::ostream& out);

// A JSON array with one object per row, keyed by column name; Boolean cells are true or false.
void WriteJsonTable(OLEDBSimpleProvider& provider, std::ostream& out);

}  // namespace varnex::cli
