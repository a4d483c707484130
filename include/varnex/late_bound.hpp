// A control reached through its members by name, as a late-bound automation caller reaches it.
#pragma once

#include <string>
#include <vector>

#include "varnex/variant.hpp"

namespace varnex {

class LateBound {
 public:
  virtual ~LateBound() = default;
  // The control's type name, e.g. "VSFlexGrid".
  virtual std::string TypeName() = 0;
  // Reads a property (or calls a method) with arguments: control.member(args...).
  virtual Variant Get(const std::string& member, const std::vector<Variant>& args) = 0;
  // Writes a property with arguments: control.member(args...) = value.
  virtual void Let(const std::string& member, const std::vector<Variant>& args, const Variant& value) = 0;
  // Assigns an object to a property: Set control.member = object.
  virtual void Set(const std::string& member, const Variant& object) = 0;
};

}  // namespace varnex
