// A small automation variant: Empty, Long, String, Boolean or an object reference.
#pragma once

#include <memory>
#include <string>
#include <type_traits>
#include <variant>

#include "varnex/object.hpp"
#include "varnex/types.hpp"

namespace varnex {

enum VbVarType : Long { vbEmpty = 0, vbLong = 3, vbString = 8, vbObject = 9, vbBoolean = 11 };

class Variant {
 public:
  Variant();                                  // vbEmpty
  Variant(Long value);                        // vbLong
  // A Boolean variant is made on purpose with FromBoolean: true, vbTrue or any Boolean would
  // otherwise come out as a Long.
  Variant(bool value) = delete;
  Variant(Boolean value) = delete;
  Variant(std::string value);                 // vbString
  Variant(const char* value);                 // vbString
  Variant(std::shared_ptr<Object> object);    // vbObject (a null pointer is the object Nothing)
  // vbObject from a reference to any class derived from Object.
  template <typename T, typename = std::enable_if_t<std::is_base_of_v<Object, T>>>
  Variant(std::shared_ptr<T> object) : Variant(std::shared_ptr<Object>(std::move(object))) {}
  static Variant FromBoolean(Boolean value);  // vbBoolean: any non-zero value is True (-1)

  VbVarType VarType() const;
  bool IsEmpty() const;

  // Conversions as CLng, CBool and CStr do; where those refuse, error 13 "Type mismatch".
  //  AsLong:    Empty 0; Boolean -1 or 0; a numeric string (blanks around it allowed, decimals,
  //             exponent, &H and &O forms) rounded half to even; a value beyond a Long is error 6
  //             "Overflow"; "" and any other text 13.
  //  AsBoolean: Empty False; a Long True when non-zero; the strings "True" and "False" in any
  //             case, or a numeric string (True when non-zero); other text 13.
  //  AsString:  Empty ""; a Long in plain decimal; a Boolean "True" or "False".
  // Objects convert to nothing else (13).
  Long AsLong() const;
  Boolean AsBoolean() const;
  std::string AsString() const;
  // The object held; error 13 when the variant holds no object (Empty gives nullptr).
  std::shared_ptr<Object> AsObject() const;
  // The object held, as a T; nullptr when it is of another class (or Nothing, or Empty).
  template <typename T>
  std::shared_ptr<T> AsObjectOf() const {
    return std::dynamic_pointer_cast<T>(AsObject());
  }

  // Same type and same value; objects are equal when they are the same object.
  friend bool operator==(const Variant& a, const Variant& b);

 private:
  struct BooleanValue {
    Boolean value;
    friend bool operator==(BooleanValue a, BooleanValue b) { return a.value == b.value; }
  };
  std::variant<std::monostate, Long, std::string, BooleanValue, std::shared_ptr<Object>> value_;
};

}  // namespace varnex
