// How the tool fails: a failure exits 1, a usage error exits 2; both are reported as one line
// "varnex: what went wrong" on standard error.
#pragma once

#include <stdexcept>
#include <string>

#include "varnex/automation_error.hpp"

namespace varnex::cli {

inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;

// The command could not do its work (unreadable or malformed input, a document that does not fit).
struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The command line asks for something the tool does not do.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// "error NUMBER (SOURCE): DESCRIPTION"; numbers in the HRESULT range are written in hexadecimal.
std::string DescribeAutomationError(const AutomationError& error);

// Writes "varnex: warning: TEXT" on standard error.
void Warn(const std::string& text);

}  // namespace varnex::cli
