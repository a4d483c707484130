// The reduction of a component tree to what must travel, written once over a small DOM
// abstraction so that it runs on the core's own documents (pugixml, trim.cpp) and on a caller's
// DOM tree (the COM server's MSXML nodes) alike.
//
// A Dom names its node type and answers, for a node that may be null:
//   Node FirstChild(const Node&), Node NextSibling(const Node&)
//   bool IsWrapper(const Node&)                    "COMPONENT" or "COLLECTION", any case
//   Node ChildElement(const Node&, const char*)    first child element of exactly that name
// and may answer, to let the walk look at each node's children once:
//   bool ElementNamed(const Node&, const char*)    an element of exactly that name
//   enComponentStatus Status(const Node&)          the "STATUS" attribute as a status
//   Persist Persistence(const Node&)               the "persist" attribute of an attachment
// A policy decides what happens to what the walk condemns:
//   bool Enter(const Node&)                        false gives up the walk at this component
//   bool Attachments(const Node&)                  false gives up the walk at this attachment list
//   void Remove(const Node& parent, const Node& child)
#pragma once

#include <concepts>
#include <cstddef>
#include <vector>

#include "runtime/nested_trap.hpp"
#include "runtime/trap.hpp"
#include "varnex/automation_error.hpp"
#include "varnex/types.hpp"

namespace varnex::trim {

// An attachment's "persist" attribute: missing, "true" in any case, or anything else.
enum class Persist { kMissing, kTrue, kOther };

// A Dom that tells an element's name, so that the walk notes what it needs from a node's
// children while looking for wrappers instead of going over them again.
template <typename Dom>
concept NamesElements = requires(const typename Dom::Node& node) {
  { Dom::ElementNamed(node, "") } -> std::convertible_to<bool>;
};

// The number of the node's direct children that are wrappers.
template <typename Dom>
Long ChildCompCount(Dom& dom, const typename Dom::Node& node) {
  return Trap{"ChildCompCount"}.Run([&] {
    Long count = 0;
    for (auto child = dom.FirstChild(node); child; child = dom.NextSibling(child)) {
      if (dom.IsWrapper(child)) ++count;
    }
    return count;
  });
}

// The node's status (0 for normal).
template <typename Dom>
Long HasModifications(Dom& dom, const typename Dom::Node& node) {
  return Trap{"HasModifications"}.Run([&] { return Long{dom.Status(node)}; });
}

// Whether any child of the node's "ATTACHMENTS" says persist="true" (any case).
template <typename Dom>
bool NodeHasPersistantAttachments(Dom& dom, const typename Dom::Node& node) {
  return Trap{"NodeHasPersistantAttachments"}.Run([&] {
    const auto attachments = dom.ChildElement(node, "ATTACHMENTS");
    if (!attachments) return false;
    for (auto child = dom.FirstChild(attachments); child; child = dom.NextSibling(child)) {
      if (dom.Persistence(child) == Persist::kTrue) return true;
    }
    return false;
  });
}

// Whether the attachment pass strips an attachment. The full reduction keeps only attachments
// whose "persist" is "true" (any case); the mild one strips only those that say otherwise.
inline bool Strips(Persist persist, bool mild) {
  if (persist == Persist::kMissing) return !mild;
  return persist == Persist::kOther;
}

// The reduction of `node`'s subtree: components without sub-components, marks or persistent
// attachments go (not in the mild form, which keeps every component); prototypes and the first
// non-persistent attachment of each component node are stripped. Sets `kill` to whether `node`
// itself may go. Answers false when the policy gave up, leaving `kill` alone.
//
// The walk works bottom-up, each component node after all of its sub-components, as a recursion
// would; the levels are kept on an explicit stack so that deep documents cannot exhaust the native
// one, and a failure carries the operation's prefix once per level all the same.
template <typename Dom, typename Policy>
bool TrimWalk(Dom& dom, const typename Dom::Node& node, Boolean& kill, bool mild, Policy&& policy) {
  using Node = typename Dom::Node;
  struct Level {
    Node node;
    Node next;                 // the next child to look at
    Node entered;              // the wrapper whose component is being reduced
    std::vector<Node> doomed;  // wrappers to remove, in the order they were marked
    // Met while looking for wrappers (when the Dom tells names); the node's own children do not
    // change while its sub-components are reduced, so these hold when the node itself is.
    Long wrappers = 0;
    Node attachments{};  // the first child element named "ATTACHMENTS"
    Node prototype{};    // the first child element named "PROTOTYPE"
    void Note(const Node& child) {
      if constexpr (NamesElements<Dom>) {
        if (!attachments && Dom::ElementNamed(child, "ATTACHMENTS")) attachments = child;
        if (!prototype && Dom::ElementNamed(child, "PROTOTYPE")) prototype = child;
      }
    }
  };
  std::vector<Level> levels;
  std::size_t depth = 1;
  return RunNested(Trap{mild ? "TrimDocument2" : "TrimDocument"}, depth, [&] {
    if (!node) throw AutomationError::Runtime(errObjectNotSet);
    if (!policy.Enter(node)) return false;
    levels.push_back({node, dom.FirstChild(node), {}, {}});
    while (true) {
      depth = levels.size();
      Level& level = levels.back();
      Node wrapper = level.next;
      for (; wrapper && !dom.IsWrapper(wrapper); wrapper = dom.NextSibling(wrapper)) level.Note(wrapper);
      if (wrapper) {
        ++level.wrappers;
        // Reduce the component first; its wrapper's fate is decided when it is done.
        level.next = dom.NextSibling(wrapper);
        level.entered = wrapper;
        const Node component = dom.FirstChild(wrapper);
        depth = levels.size() + 1;
        if (!component) throw AutomationError::Runtime(errObjectNotSet);
        if (!policy.Enter(component)) return false;
        levels.push_back({component, dom.FirstChild(component), {}, {}});
        continue;
      }

      const Node current = level.node;
      // The attachment pass: the first attachment it strips goes (a removed attachment has no
      // next sibling, so the walk ends there). False when the policy gave up.
      const auto strip_attachment = [&](const Node& attachments) {
        if (!policy.Attachments(attachments)) return false;
        for (Node attachment = dom.FirstChild(attachments); attachment; attachment = dom.NextSibling(attachment)) {
          if (Strips(dom.Persistence(attachment), mild)) {
            policy.Remove(attachments, attachment);
            break;
          }
        }
        return true;
      };
      // Counted before any marked child goes: a node that had sub-components is never marked.
      bool doomed = false;
      if constexpr (NamesElements<Dom>) {
        doomed = !mild && level.wrappers == 0 && HasModifications(dom, current) == csNormal &&
                 !NodeHasPersistantAttachments(dom, current);
        if (level.attachments && !strip_attachment(level.attachments)) return false;
        if (level.prototype) policy.Remove(current, level.prototype);
      } else {
        doomed = !mild && ChildCompCount(dom, current) == 0 && HasModifications(dom, current) == csNormal &&
                 !NodeHasPersistantAttachments(dom, current);
        if (dom.FirstChild(current)) {
          if (const Node attachments = dom.ChildElement(current, "ATTACHMENTS")) {
            if (!strip_attachment(attachments)) return false;
          }
        }
        if (const Node prototype = dom.ChildElement(current, "PROTOTYPE")) policy.Remove(current, prototype);
      }
      for (const Node& marked : level.doomed) policy.Remove(current, marked);

      levels.pop_back();
      if (levels.empty()) {
        kill = doomed ? vbTrue : vbFalse;
        return true;
      }
      if (doomed) levels.back().doomed.push_back(levels.back().entered);
    }
  });
}

}  // namespace varnex::trim
