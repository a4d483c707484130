// The small automation variant: construction, type and text.
#include "varnex/variant.hpp"

#include "runtime/text.hpp"
#include "varnex/automation_error.hpp"

namespace varnex {

Variant::Variant() = default;
Variant::Variant(Long value) : value_(value) {}
Variant::Variant(std::string value) : value_(std::move(value)) {}
Variant::Variant(const char* value) : value_(std::string(value)) {}
Variant::Variant(std::shared_ptr<Object> object) : value_(std::move(object)) {}

Variant Variant::FromBoolean(Boolean value) {
  Variant result;
  result.value_ = BooleanValue{value != vbFalse ? vbTrue : vbFalse};
  return result;
}

VbVarType Variant::VarType() const {
  switch (value_.index()) {
    case 1: return vbLong;
    case 2: return vbString;
    case 3: return vbBoolean;
    case 4: return vbObject;
    default: return vbEmpty;
  }
}

bool Variant::IsEmpty() const { return value_.index() == 0; }

std::string Variant::AsString() const {
  switch (value_.index()) {
    case 0: return {};
    case 1: return FormatLong(std::get<Long>(value_));
    case 2: return std::get<std::string>(value_);
    case 3: return std::get<BooleanValue>(value_).value != vbFalse ? "True" : "False";
    default: throw AutomationError::Runtime(errTypeMismatch);
  }
}

bool operator==(const Variant& a, const Variant& b) {
  if (a.value_.index() != b.value_.index()) return false;
  switch (a.value_.index()) {
    case 1: return std::get<Long>(a.value_) == std::get<Long>(b.value_);
    case 2: return std::get<std::string>(a.value_) == std::get<std::string>(b.value_);
    case 3: return std::get<Variant::BooleanValue>(a.value_).value == std::get<Variant::BooleanValue>(b.value_).value;
    case 4: return std::get<std::shared_ptr<Object>>(a.value_) == std::get<std::shared_ptr<Object>>(b.value_);
    default: return true;
  }
}

}  // namespace varnex
