// The names of change statuses as the tool writes them.
#pragma once

#include <string_view>

#include "varnex/types.hpp"

namespace varnex::cli {

// "NORMAL", "MODIFIED", "NEW" or "DELETED" (the document's own words); "UNKNOWN" otherwise.
constexpr std::string_view StatusName(enComponentStatus status) {
  switch (status) {
    case csNormal: return "NORMAL";
    case csModified: return "MODIFIED";
    case csNew: return "NEW";
    case csDeleted: return "DELETED";
  }
  return "UNKNOWN";
}

}  // namespace varnex::cli
