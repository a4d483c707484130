// The error trap that every operation of Varnex runs under.
//
// An operation's trap catches any failure of its body and raises it again with the same number
// and source, the description prefixed with the operation's name and ": ". Prefixes therefore nest
// along the call chain. Operations that know handles translate error 424 (object required, the
// sign of an unknown handle) into the fixed description "<name>: Invalid Handle".
//
//   return Trap{"AddComponent", kInvalidHandle}.Run([&] { ... });
#pragma once

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "runtime/memory_budget.hpp"
#include "varnex/automation_error.hpp"

namespace varnex {

// What a trap writes for error 424; empty for no translation.
inline constexpr std::string_view kInvalidHandle = "Invalid Handle";

struct Trap {
  std::string_view name;               // the operation's name, put before ": "
  std::string_view invalid_handle{};   // replaces the description of error 424 when set
  std::string_view source{};           // replaces the source when set

  // Runs the body; a failure is raised again as this operation's error.
  template <typename Body>
  decltype(auto) Run(Body&& body) const {
    const budget::Scope budget;  // the operation's memory budget, when this is its outermost trap
    try {
      return std::forward<Body>(body)();
    } catch (const AutomationError& error) {
      throw Rethrown(error);
    } catch (const std::bad_alloc&) {
      throw Rethrown(AutomationError::Runtime(errOutOfMemory));
    }
  }

  // The error as this trap raises it again.
  AutomationError Rethrown(const AutomationError& error) const;
};

// The trap of an operation whose every failure becomes its one class error: number 0x80040201,
// the class name as source and a fixed description, whatever the cause.
//
//   ClassErrorTrap{"DataCollection", "Error Binding to Grid."}.Run([&] { ... });
struct ClassErrorTrap {
  std::string_view source;       // the class name
  std::string_view description;  // the fixed description

  template <typename Body>
  decltype(auto) Run(Body&& body) const {
    try {
      return std::forward<Body>(body)();
    } catch (const AutomationError&) {
      throw Raised();
    } catch (const std::bad_alloc&) {
      throw Raised();
    }
  }

  AutomationError Raised() const { return AutomationError::Class(std::string(source), std::string(description)); }
};

// Runs the body and answers `failure` instead of raising when it fails.
template <typename Result, typename Body>
Result Swallow(Result failure, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const AutomationError&) {
    return failure;
  } catch (const std::bad_alloc&) {
    return failure;
  }
}

// Runs the body and ignores any failure ("On Error Resume Next" over a step).
template <typename Body>
void IgnoreErrors(Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const AutomationError&) {
  } catch (const std::bad_alloc&) {
  }
}

}  // namespace varnex
