// A provider's table as text.
#include "binding/provider_table.hpp"

#include <algorithm>

namespace varnex {
namespace {

// Width of UTF-8 text in characters (continuation bytes do not count).
std::size_t Width(const std::string& text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

}  // namespace

std::vector<std::vector<std::string>> ReadProviderTable(OLEDBSimpleProvider& provider) {
  const Long rows = provider.getRowCount();
  const Long columns = provider.getColumnCount();
  std::vector<std::vector<std::string>> table;
  table.reserve(static_cast<std::size_t>(rows > 0 ? rows : 0) + 1);
  for (Long row = 0; row <= rows; ++row) {
    std::vector<std::string>& cells = table.emplace_back();
    for (Long column = 1; column <= columns; ++column) {
      cells.push_back(provider.getVariant(row, column, 0).AsString());
    }
  }
  return table;
}

std::string FormatProviderTable(OLEDBSimpleProvider& provider) {
  const std::vector<std::vector<std::string>> table = ReadProviderTable(provider);
  std::vector<std::size_t> widths(table.front().size(), 0);
  for (const auto& cells : table) {
    for (std::size_t i = 0; i < cells.size(); ++i) widths[i] = std::max(widths[i], Width(cells[i]));
  }
  std::string out;
  const auto line = [&](const std::vector<std::string>& cells) {
    std::string text;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i > 0) text += " | ";
      text += cells[i];
      text.append(widths[i] - Width(cells[i]), ' ');
    }
    while (!text.empty() && text.back() == ' ') text.pop_back();
    out += text;
    out += '\n';
  };
  line(table.front());
  std::string rule;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    if (i > 0) rule += "-+-";
    rule.append(widths[i], '-');
  }
  out += rule;
  out += '\n';
  for (std::size_t row = 1; row < table.size(); ++row) line(table[row]);
  return out;
}

}  // namespace varnex
