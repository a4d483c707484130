// Assertions on automation errors.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "varnex/automation_error.hpp"

namespace varnex::testing {

// Runs the body and answers the automation error it raised; a failure when it raised none.
inline AutomationError ErrorOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const AutomationError& error) {
    return error;
  }
  ADD_FAILURE() << "no automation error was raised";
  return AutomationError(0, "", "");
}

}  // namespace varnex::testing

// Expects the statement to raise an automation error with this number and description.
#define EXPECT_AUTOMATION_ERROR(statement, expected_number, expected_description)          \
  do {                                                                                      \
    const ::varnex::AutomationError error_ = ::varnex::testing::ErrorOf([&] { statement; }); \
    EXPECT_EQ(error_.number(), (expected_number));                                          \
    EXPECT_EQ(error_.description(), (expected_description));                                \
  } while (false)

// Expects the statement to raise an automation error with this number, source and description.
#define EXPECT_AUTOMATION_ERROR_FROM(statement, expected_number, expected_source, expected_description) \
  do {                                                                                                \
    const ::varnex::AutomationError error_ = ::varnex::testing::ErrorOf([&] { statement; });           \
    EXPECT_EQ(error_.number(), (expected_number));                                                    \
    EXPECT_EQ(error_.source(), (expected_source));                                                    \
    EXPECT_EQ(error_.description(), (expected_description));                                          \
  } while (false)
