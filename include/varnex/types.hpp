// Basic automation types and the public enumerations of Varnex.
#pragma once

#include <cstdint>
#include <string>

namespace varnex {

// A 32-bit signed automation Long.
using Long = std::int32_t;

// An automation Boolean: True is -1, False is 0. Kept as a 16-bit integer rather than bool
// because some operations treat only -1 as True and others any non-zero value.
using Boolean = std::int16_t;
inline constexpr Boolean vbTrue = -1;
inline constexpr Boolean vbFalse = 0;

// Change status of a component or property, written as the "STATUS" attribute.
enum enComponentStatus : Long { csNormal = 0, csModified = 1, csNew = 2, csDeleted = 3 };

// Whether a handle names a component or a collection.
enum enComponentType : Long { ctComponent = 0, ctcollection = 1 };

// What GenerateTransportDoc gives out: the whole document, only the changes, or every
// component without the domain sections.
enum enTransportMode : Long { tmFull = 0, tmShort = 1, tmMedium = 2 };

// Declared for callers of the automation interface; no operation takes or returns it.
enum enOutputComponentMode : Long { ocmFull = 0, ocmChanges = 1 };

// The member's name ("csNew", "tmShort", ...); a value that names no member gives its number.
std::string to_string(enComponentStatus value);
std::string to_string(enComponentType value);
std::string to_string(enTransportMode value);
std::string to_string(enOutputComponentMode value);

}  // namespace varnex
