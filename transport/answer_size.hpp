// How much an operation over the top-level wrappers will build, known before it starts.
//
// The exchange operations take every selected wrapper with its whole subtree, and selected
// wrappers may stand inside one another (a component named like the root), so the work can grow
// with the square of the document. Counting first lets such an operation fail at once with
// error 7 instead of building until its memory budget is spent.
#pragma once

#include <cstdint>
#include <vector>

#include <pugixml.hpp>

#include "transport/node_map.hpp"

namespace varnex {

// The number of wrappers that taking every one of `selected` with its subtree visits: each
// wrapper counted once for every selected wrapper at or above it. Subtrees of the `left_out`
// nodes are not taken.
std::uint64_t WrappersTaken(const std::vector<pugi::xml_node>& selected,
                            const NodeSet* left_out = nullptr);

// What each wrapper taken costs at least: in text, its tags "<COMPONENT></COMPONENT>"; in a
// copy, a component (budget::kComponentCost); in a walk pairing two documents, the two lists of
// children the level pairs.
inline constexpr std::uint64_t kWrapperTextCost = 23;
inline constexpr std::uint64_t kPairedLevelCost = 64;
// The least text a wrapper written in full takes: an empty one, "<COMPONENT/>".
inline constexpr std::uint64_t kWrapperTextLeast = 12;

// Error 7 unless the running operation can write the selected wrappers as text, as
// budget::Require(WrappersTaken(selected, left_out), kWrapperTextCost) decides before anything
// is written. Where selected wrappers may stand inside one another, the count is made at once,
// so that an answer growing with the square of the depth fails before it is built. Otherwise
// the decision waits for the text: every wrapper taken stands in it at least once, so text short
// enough shows that the count fits without a walk over the tree to make it.
class WrapperTextCheck {
 public:
  // Holds on to `selected` and `left_out` until the text is written.
  WrapperTextCheck(const std::vector<pugi::xml_node>& selected, const NodeSet* left_out, bool may_nest);
  // The text written for the selection has `size` bytes: error 7 where the count does not fit
  // what the operation could build when the check began.
  void Written(std::uint64_t size) const;

 private:
  const std::vector<pugi::xml_node>& selected_;
  const NodeSet* left_out_;
  std::uint64_t left_;  // what the operation could build when the check began
  bool counted_;        // decided at once
};

}  // namespace varnex
