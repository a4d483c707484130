#include "cli/text_formats.hpp"

#include <fmt/format.h>

namespace varnex::cli {

void WriteJsonString(std::ostream& out, std::string_view text) {
  out << '"';
  std::size_t plain = 0;  // start of the run not yet written
  for (std::size_t i = 0; i < text.size(); ++i) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    if (c >= 0x20 && c != '"' && c != '\\') continue;
    out.write(text.data() + plain, static_cast<std::streamsize>(i - plain));
    plain = i + 1;
    switch (c) {
      case '"': out << "\\\""; break;
      case '\\': out << "\\\\"; break;
      case '\n': out << "\\n"; break;
      case '\r': out << "\\r"; break;
      case '\t': out << "\\t"; break;
      default: out << fmt::format("\\u{:04x}", c);
    }
  }
  out.write(text.data() + plain, static_cast<std::streamsize>(text.size() - plain));
  out << '"';
}

void WriteCsvField(std::ostream& out, std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
    out << text;
    return;
  }
  out << '"';
  for (const char c : text) {
    if (c == '"') out << '"';
    out << c;
  }
  out << '"';
}

}  // namespace varnex::cli
