// A small automation variant: Empty, Long, String, Boolean or an object reference.
#pragma once

#include <memory>
#include <string>
#include <variant>

#include "varnex/object.hpp"
#include "varnex/types.hpp"

namespace varnex {

enum VbVarType : Long { vbEmpty = 0, vbLong = 3, vbString = 8, vbObject = 9, vbBoolean = 11 };

class Variant {
 public:
  Variant();                                  // vbEmpty
  Variant(Long value);                        // vbLong
  Variant(std::string value);                 // vbString
  Variant(const char* value);                 // vbString
  Variant(std::shared_ptr<Object> object);    // vbObject (a null pointer is the object Nothing)
  static Variant FromBoolean(Boolean value);  // vbBoolean, -1 or 0

  VbVarType VarType() const;
  bool IsEmpty() const;

  // Conversions as CLng, CBool and CStr do; where those refuse, error 13 "Type mismatch".
  Long AsLong() const;
  Boolean AsBoolean() const;
  std::string AsString() const;
  // The object held; error 13 when the variant holds no object (Empty gives nullptr).
  std::shared_ptr<Object> AsObject() const;

  friend bool operator==(const Variant& a, const Variant& b);

 private:
  struct BooleanValue { Boolean value; };
  std::variant<std::monostate, Long, std::string, BooleanValue, std::shared_ptr<Object>> value_;
};

}  // namespace varnex
