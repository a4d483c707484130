// The common base of every class that a Variant can hold, as everything is an IDispatch in COM.
#pragma once

namespace varnex {

class Object {
 public:
  virtual ~Object() = default;
};

}  // namespace varnex
