// Writing values in the tool's machine-readable formats.
#pragma once

#include <ostream>
#include <string_view>

namespace varnex::cli {

// A JSON string literal, quotes included.
void WriteJsonString(std::ostream& out, std::string_view text);

// One CSV field (RFC 4180): quoted when it holds a comma, a quote or a line break, quotes doubled.
void WriteCsvField(std::ostream& out, std::string_view text);

// The line end of CSV records (RFC 4180).
inline constexpr std::string_view kCsvLineEnd = "\r\n";

}  // namespace varnex::cli
