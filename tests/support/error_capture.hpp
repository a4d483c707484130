// Captures the automation error that a call raises, so that a test can check its number,
// source and description together.
#pragma once

#include <optional>

#include <gtest/gtest.h>

#include "varnex/automation_error.hpp"

namespace varnex::testing {

// The error the call raised; nothing (and a test failure) when it raised none.
template <typename Call>
std::optional<AutomationError> ErrorOf(Call&& call) {
  try {
    call();
  } catch (const AutomationError& error) {
    return error;
  }
  ADD_FAILURE() << "the call raised no error";
  return std::nullopt;
}

}  // namespace varnex::testing
