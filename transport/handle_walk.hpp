// A walk over components by handle, depth first, as a recursion over handles would make it, but
// on an explicit stack so that deep documents cannot exhaust the native one.
//
// The walk knows the depth of the current call, for descriptions that collect one prefix per
// level, and refuses to enter a handle whose call is still open above it (error 28): an empty
// wrapper yields handle 0, the root, and a recursion that came back to its own path would never
// have ended.
#pragma once

#include <algorithm>
#include <cstddef>
#include <unordered_set>
#include <vector>

#include "varnex/automation_error.hpp"

namespace varnex {

class HandleWalk {
 public:
  explicit HandleWalk(Long first) : pending_{{first, 1}} {}

  // Takes the next call into `handle`; false when the walk is done.
  bool Next(Long& handle) {
    if (pending_.empty()) return false;
    const Call call = pending_.back();
    pending_.pop_back();
    for (; path_.size() >= call.depth; path_.pop_back()) on_path_.erase(path_.back());
    depth_ = call.depth;
    if (on_path_.count(call.handle) != 0) throw AutomationError::Runtime(errOutOfStackSpace);
    handle = call.handle;
    return true;
  }

  // Goes on into the current call's children: `add_children` receives a function that queues one
  // child handle, to be called in document order.
  template <typename AddChildren>
  void Descend(Long handle, AddChildren&& add_children) {
    path_.push_back(handle);
    on_path_.insert(handle);
    const std::size_t first = pending_.size();
    add_children([&](Long child) { pending_.push_back({child, depth_ + 1}); });
    std::reverse(pending_.begin() + static_cast<std::ptrdiff_t>(first), pending_.end());
  }

  // The nesting depth of the current call, 1 for the first.
  const std::size_t& depth() const { return depth_; }

 private:
  struct Call {
    Long handle;
    std::size_t depth;
  };
  std::vector<Call> pending_;
  std::vector<Long> path_;  // handles of the calls still open above the current one
  std::unordered_set<Long> on_path_;
  std::size_t depth_ = 1;
};

}  // namespace varnex
