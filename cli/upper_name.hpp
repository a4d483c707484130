// Names as the document writes them: upper case. Element and property names that people type
// compare with the document's after upper-casing.
#pragma once

#include <string>
#include <string_view>

namespace varnex::cli {

// The name with ASCII letters upper-cased (other characters as they are).
inline std::string UpperName(std::string_view name) {
  std::string upper(name);
  for (char& c : upper) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return upper;
}

}  // namespace varnex::cli
