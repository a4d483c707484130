// Text helpers of the platform: upper-casing, case-insensitive comparison, trimming and the
// plain decimal form of numbers used in index keys.
#pragma once

#include <string>
#include <string_view>

#include "varnex/types.hpp"

namespace varnex {

// Upper-cases UTF-8 text: ASCII exactly, other letters by simple Unicode case mapping
// (é to É; ß stays ß). Invalid UTF-8 bytes are kept as they are.
std::string UCase(std::string_view text);

// True when the two texts are equal once both are upper-cased.
bool EqualsIgnoreCase(std::string_view a, std::string_view b);

// Removes leading and trailing blanks (spaces only, as the platform's Trim does).
std::string_view TrimBlanks(std::string_view text);

// Text arguments never hold a NUL character: the document cannot carry one (XML has no way to
// write it) and would cut the value short at it. Every operation that takes text refuses such
// text with error 5 "Invalid procedure call or argument" before it changes anything.
void RefuseNul(std::string_view text);
template <typename... Texts>
void RefuseNul(std::string_view first, const Texts&... rest) {
  RefuseNul(first);
  (RefuseNul(std::string_view(rest)), ...);
}

// The number in plain decimal, with a minus sign where negative.
std::string FormatLong(Long value);

}  // namespace varnex
