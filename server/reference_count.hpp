// The reference count of a COM object of this server. While any such object lives, the DLL
// reports that it cannot be unloaded.
#pragma once

#include <atomic>

#include <windows.h>

#include "module.hpp"

namespace varnex::server {

class ReferenceCount {
 public:
  ReferenceCount() { ObjectCreated(); }
  ~ReferenceCount() { ObjectDestroyed(); }
  ReferenceCount(const ReferenceCount&) = delete;
  ReferenceCount& operator=(const ReferenceCount&) = delete;

  ULONG Add() { return ++count_; }
  // Drops one reference; the last one deletes the object.
  template <typename Object>
  ULONG Release(Object* object) {
    const ULONG left = --count_;
    if (left == 0) delete object;
    return left;
  }

 private:
  std::atomic<ULONG> count_{1};
};

}  // namespace varnex::server
