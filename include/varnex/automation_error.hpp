// The automation error: every failure of a Varnex operation is thrown as one of these.
#pragma once

#include <stdexcept>
#include <string>

#include "varnex/types.hpp"

namespace varnex {

// Numbers of the runtime errors that Varnex raises itself (source "Varnex").
inline constexpr Long errInvalidProcedureCall = 5;   // Invalid procedure call or argument
inline constexpr Long errOverflow = 6;               // Overflow
inline constexpr Long errOutOfMemory = 7;            // Out of memory
inline constexpr Long errSubscriptOutOfRange = 9;    // Subscript out of range
inline constexpr Long errTypeMismatch = 13;          // Type mismatch
inline constexpr Long errOutOfStackSpace = 28;       // Out of stack space
inline constexpr Long errObjectNotSet = 91;          // Object variable or With block variable not set
inline constexpr Long errInvalidUseOfNull = 94;      // Invalid use of Null
inline constexpr Long errObjectRequired = 424;       // Object required: an unknown handle or key
inline constexpr Long errObjectDoesntSupport = 438;  // Object doesn't support this property or method
inline constexpr Long errDuplicateKey = 457;         // This key is already associated with ...
inline constexpr Long errElementNotFound = 32811;    // Element not found: a missing dictionary key

// Errors of the XML layer: an invalid element name, an XPath that does not compile.
inline constexpr Long errXml = static_cast<Long>(0x80004005);
// The class errors of Varnex: interface error base 0x80040000 plus 513.
inline constexpr Long errClass = static_cast<Long>(0x80040201);

// Source of the runtime's own errors.
inline constexpr const char* kRuntimeSource = "Varnex";

class AutomationError : public std::exception {
 public:
  AutomationError(Long number, std::string source, std::string description);

  // A runtime error with source "Varnex" and the standard description of its number.
  static AutomationError Runtime(Long number);
  // A class error: number 0x80040201, the class name as source, a fixed description.
  static AutomationError Class(std::string source, std::string description);

  Long number() const noexcept { return number_; }
  const std::string& source() const noexcept { return source_; }
  const std::string& description() const noexcept { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  Long number_;
  std::string source_;
  std::string description_;
};

// The standard description of a runtime error number ("" for numbers it does not know).
std::string RuntimeErrorText(Long number);

}  // namespace varnex
