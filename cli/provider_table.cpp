#include "cli/provider_table.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include "cli/text_formats.hpp"

namespace varnex::cli {
namespace {

// Width of UTF-8 text in characters (continuation bytes do not count).
std::size_t Width(const std::string& text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// The number of value rows; a provider that reports a negative count has none.
Long RowCount(OLEDBSimpleProvider& provider) { return std::max<Long>(provider.getRowCount(), 0); }
Long ColumnCount(OLEDBSimpleProvider& provider) { return std::max<Long>(provider.getColumnCount(), 0); }

std::string Cell(OLEDBSimpleProvider& provider, Long row, Long column) {
  return provider.getVariant(row, column, 0).AsString();
}

void WriteTextRow(OLEDBSimpleProvider& provider, Long row, const std::vector<std::size_t>& widths, std::ostream& out) {
  std::string line;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const std::string cell = Cell(provider, row, static_cast<Long>(i + 1));
    if (i > 0) line += " | ";
    line += cell;
    line.append(widths[i] - std::min(widths[i], Width(cell)), ' ');
  }
  while (!line.empty() && line.back() == ' ') line.pop_back();
  out << line << '\n';
}

}  // namespace

void WriteTextTable(OLEDBSimpleProvider& provider, std::ostream& out) {
  const Long rows = RowCount(provider);
  std::vector<std::size_t> widths(static_cast<std::size_t>(ColumnCount(provider)), 0);
  for (Long row = 0; row <= rows; ++row) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      widths[i] = std::max(widths[i], Width(Cell(provider, row, static_cast<Long>(i + 1))));
    }
  }
  WriteTextRow(provider, 0, widths, out);
  std::string rule;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    if (i > 0) rule += "-+-";
    rule.append(widths[i], '-');
  }
  out << rule << '\n';
  for (Long row = 1; row <= rows; ++row) WriteTextRow(provider, row, widths, out);
}

void WriteCsvTable(OLEDBSimpleProvider& provider, std::ostream& out) {
  const Long rows = RowCount(provider);
  const Long columns = ColumnCount(provider);
  for (Long row = 0; row <= rows; ++row) {
    for (Long column = 1; column <= columns; ++column) {
      if (column > 1) out << ',';
      WriteCsvField(out, Cell(provider, row, column));
    }
    out << kCsvLineEnd;
  }
}

void WriteJsonTable(OLEDBSimpleProvider& provider, std::ostream& out) {
  const Long rows = RowCount(provider);
  const Long columns = ColumnCount(provider);
  std::vector<std::string> names;
  for (Long column = 1; column <= columns; ++column) names.push_back(Cell(provider, 0, column));
  out << '[';
  for (Long row = 1; row <= rows; ++row) {
    out << (row > 1 ? ",\n{" : "\n{");
    for (Long column = 1; column <= columns; ++column) {
      if (column > 1) out << ',';
      WriteJsonString(out, names[static_cast<std::size_t>(column - 1)]);
      out << ':';
      const Variant value = provider.getVariant(row, column, 0);
      if (value.VarType() == vbBoolean) {
        out << (value.AsBoolean() ? "true" : "false");
      } else {
        WriteJsonString(out, value.AsString());
      }
    }
    out << '}';
  }
  out << (rows > 0 ? "\n]\n" : "]\n");
}

}  // namespace varnex::cli
