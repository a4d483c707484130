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

}  // namespace varnex
