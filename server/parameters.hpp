// The parameters of COM methods as the core takes them: results written through out pointers,
// and in/out parameters read on entry and written back when the call succeeds.
#pragma once

#include <cstring>
#include <exception>
#include <string>
#include <type_traits>

#include <windows.h>
#include <oleauto.h>

#include <varnex/types.hpp>

#include "errors.hpp"
#include "strings.hpp"

namespace varnex::server {

// The interfaces' enumerations are plain C enums whose values are only their named constants,
// while a caller may pass any Long for them: such a value is copied as the Long it is, never
// loaded or stored as the enumeration (which would be undefined for a value out of its range).
template <typename ComEnum>
  requires(std::is_enum_v<ComEnum> && sizeof(ComEnum) == sizeof(Long))
Long LongOf(const ComEnum& value) {
  Long raw;
  std::memcpy(&raw, &value, sizeof raw);
  return raw;
}
template <typename ComEnum>
  requires(std::is_enum_v<ComEnum> && sizeof(ComEnum) == sizeof(Long))
void StoreLong(ComEnum* target, Long value) {
  std::memcpy(target, &value, sizeof value);
}

// Results ([out, retval]); the pointer holds nothing on entry.
inline void PutResult(LONG* out, Long value) {
  RequirePointer(out);
  *out = value;
}
inline void PutResult(VARIANT_BOOL* out, Boolean value) {
  RequirePointer(out);
  *out = value;
}
inline void PutResult(BSTR* out, const std::string& value) {
  RequirePointer(out);
  *out = ToBstr(value);
}
template <typename ComEnum, typename CoreEnum>
  requires(sizeof(ComEnum) == sizeof(Long))
void PutResult(ComEnum* out, CoreEnum value) {
  RequirePointer(out);
  StoreLong(out, static_cast<Long>(value));
}

// An in/out parameter: converts the caller's value on entry, and writes the core's value back
// at the end of the scope unless an error is on its way out.
template <typename Com, typename Core>
class InOut {
 public:
  explicit InOut(Com* pointer) : pointer_(pointer), value_(Read(pointer)) {}
  ~InOut() noexcept(false) {
    if (std::uncaught_exceptions() == exceptions_) Write(pointer_, value_);
  }
  InOut(const InOut&) = delete;
  InOut& operator=(const InOut&) = delete;
  operator Core&() { return value_; }

 private:
  static Core Read(Com* pointer) {
    RequirePointer(pointer);
    if constexpr (std::is_same_v<Com, BSTR>) {
      return ToUtf8(*pointer);
    } else if constexpr (std::is_enum_v<Com>) {
      return static_cast<Core>(LongOf(*pointer));
    } else {
      return static_cast<Core>(*pointer);
    }
  }
  static void Write(Com* pointer, const Core& value) {
    if constexpr (std::is_same_v<Com, BSTR>) {
      StoreBstr(pointer, value);
    } else if constexpr (std::is_enum_v<Com>) {
      StoreLong(pointer, static_cast<Long>(value));
    } else {
      *pointer = static_cast<Com>(value);
    }
  }

  Com* pointer_;
  Core value_;
  int exceptions_ = std::uncaught_exceptions();
};

using StringRef = InOut<BSTR, std::string>;
using BooleanRef = InOut<VARIANT_BOOL, Boolean>;

}  // namespace varnex::server
