// The automation error and the standard texts of the runtime's errors.
#include "varnex/automation_error.hpp"

namespace varnex {

AutomationError::AutomationError(Long number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {}

AutomationError AutomationError::Runtime(Long number) {
  return AutomationError(number, kRuntimeSource, RuntimeErrorText(number));
}

AutomationError AutomationError::Class(std::string source, std::string description) {
  return AutomationError(errClass, std::move(source), std::move(description));
}

std::string RuntimeErrorText(Long number) {
  switch (number) {
    case errInvalidProcedureCall: return "Invalid procedure call or argument";
    case errOverflow: return "Overflow";
    case errOutOfMemory: return "Out of memory";
    case errSubscriptOutOfRange: return "Subscript out of range";
    case errTypeMismatch: return "Type mismatch";
    case errOutOfStackSpace: return "Out of stack space";
    case errObjectNotSet: return "Object variable or With block variable not set";
    case errInvalidUseOfNull: return "Invalid use of Null";
    case errObjectRequired: return "Object required";
    case errObjectDoesntSupport: return "Object doesn't support this property or method";
    case errDuplicateKey: return "This key is already associated with an element of this collection";
    case errElementNotFound: return "Element not found";
    default: return {};
  }
}

}  // namespace varnex
