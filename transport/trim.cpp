// Reducing a document to what must travel: components without sub-components, marks or
// persistent attachments go; prototypes and non-persistent attachments are stripped.
//
// The reduction works bottom-up, each component node after all of its sub-components, as a
// recursion would; the levels are kept on an explicit stack so that deep documents cannot exhaust
// the native one, and a failure carries the operation's prefix once per level all the same. The
// same walk either removes what it condemns or only records it (for generating text from the
// own document, which must not change).
#include <vector>

#include "runtime/nested_trap.hpp"
#include "runtime/text.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"
#include "transport/wrapper_names.hpp"
#include "transport/trim_marks.hpp"

namespace varnex {
namespace {

// Whether the attachment pass strips this attachment. The full reduction keeps only attachments
// whose "persist" is "true" (any case); the mild one strips only those that say otherwise.
bool Strips(pugi::xml_node attachment, bool mild) {
  const char* persist = xml::AttributeOrNull(attachment, "persist");
  if (!persist) return !mild;
  return !EqualsIgnoreCase(persist, "true");
}

// Removes condemned nodes from their parents at once.
struct Removing {
  static bool Enter(pugi::xml_node) { return true; }
  static bool Attachments(pugi::xml_node) { return true; }
  static void Remove(pugi::xml_node parent, pugi::xml_node child) { parent.remove_child(child); }
};

// Records condemned nodes and leaves the tree alone. Gives up (answers false) where a reload of
// the serialised tree would differ in what the reduction looks at: text, which loading may drop
// or join, as a wrapper's first child or among attachments; and an attached declaration, which
// keeps the text from loading at all.
struct Recording {
  TrimMarks& marks;
  bool Enter(pugi::xml_node component) const { return component.type() != pugi::node_pcdata; }
  bool Attachments(pugi::xml_node list) const {
    for (pugi::xml_node child = list.first_child(); child; child = child.next_sibling()) {
      if (child.type() == pugi::node_pcdata || ReadsAsDeclaration(child)) return false;
    }
    return true;
  }
  void Remove(pugi::xml_node, pugi::xml_node child) const { marks.removed.Insert(child.internal_object()); }
};

// The reduction of `node`'s subtree. Answers false when the policy gave up, leaving `kill` alone.
template <typename Policy>
bool TrimWalk(Transport::Impl& impl, pugi::xml_node node, Boolean& kill, bool mild, Policy&& policy) {
  struct Level {
    pugi::xml_node node;
    pugi::xml_node next;                  // the next child to look at
    pugi::xml_node entered;               // the wrapper whose component is being reduced
    std::vector<pugi::xml_node> doomed;   // wrappers to remove, in the order they were marked
    // Met while looking for wrappers; the node's own children do not change while its
    // sub-components are reduced, so these hold when the node itself is.
    Long wrappers = 0;
    pugi::xml_node attachments;  // the first child element named "ATTACHMENTS"
    pugi::xml_node prototype;    // the first child element named "PROTOTYPE"
    void Note(pugi::xml_node child) {
      if (!attachments && xml::ElementNamed(child, "ATTACHMENTS")) attachments = child;
      if (!prototype && xml::ElementNamed(child, "PROTOTYPE")) prototype = child;
    }
  };
  std::vector<Level> levels;
  std::size_t depth = 1;
  return RunNested(Trap{mild ? "TrimDocument2" : "TrimDocument"}, depth, [&] {
    if (!node) throw AutomationError::Runtime(errObjectNotSet);
    if (!policy.Enter(node)) return false;
    levels.push_back({node, node.first_child(), {}, {}});
    while (true) {
      depth = levels.size();
      Level& level = levels.back();
      pugi::xml_node wrapper = level.next;
      for (; wrapper && !IsWrapper(wrapper); wrapper = wrapper.next_sibling()) level.Note(wrapper);
      if (wrapper) {
        ++level.wrappers;
        // Reduce the component first; its wrapper's fate is decided when it is done.
        level.next = wrapper.next_sibling();
        level.entered = wrapper;
        const pugi::xml_node component = wrapper.first_child();
        depth = levels.size() + 1;
        if (!component) throw AutomationError::Runtime(errObjectNotSet);
        if (!policy.Enter(component)) return false;
        levels.push_back({component, component.first_child(), {}, {}});
        continue;
      }

      const pugi::xml_node current = level.node;
      // Counted before any marked child goes: a node that had sub-components is never marked.
      const bool doomed = !mild && level.wrappers == 0 && impl.HasModifications(current) == csNormal &&
                          !impl.NodeHasPersistantAttachments(current);
      if (const pugi::xml_node attachments = level.attachments) {
        if (!policy.Attachments(attachments)) return false;
        // A removed attachment has no next sibling: the walk ends at the first removal.
        for (pugi::xml_node attachment = attachments.first_child(); attachment; attachment = attachment.next_sibling()) {
          if (Strips(attachment, mild)) {
            policy.Remove(attachments, attachment);
            break;
          }
        }
      }
      if (const pugi::xml_node prototype = level.prototype) policy.Remove(current, prototype);
      for (const pugi::xml_node marked : level.doomed) policy.Remove(current, marked);

      levels.pop_back();
      if (levels.empty()) {
        kill = doomed ? vbTrue : vbFalse;
        return true;
      }
      if (doomed) levels.back().doomed.push_back(levels.back().entered);
    }
  });
}

}  // namespace

void Transport::TrimDocument(pugi::xml_document&, pugi::xml_node& nNode, Boolean& boolKill) {
  TrimWalk(*impl_, nNode, boolKill, false, Removing{});
}

void Transport::TrimDocument2(pugi::xml_document&, pugi::xml_node& nNode, Boolean& boolKill) {
  TrimWalk(*impl_, nNode, boolKill, true, Removing{});
}

bool Transport::Impl::MarkTrim(pugi::xml_node node, TrimMarks& marks) {
  Boolean kill = vbFalse;
  if (!TrimWalk(*this, node, kill, false, Recording{marks})) return false;
  for (const void* removed : marks.removed.InOrder()) {
    const pugi::xml_node node(static_cast<pugi::xml_node_struct*>(const_cast<void*>(removed)));
    for (pugi::xml_node above = node.parent(); above; above = above.parent()) {
      if (!marks.changed.Insert(above.internal_object())) break;
    }
  }
  return true;
}

Long Transport::Impl::HasModifications(pugi::xml_node node) {
  return Trap{"HasModifications"}.Run([&] { return Long{GetNodeStatus(node)}; });
}

Long Transport::Impl::ChildCompCount(pugi::xml_node node) {
  return Trap{"ChildCompCount"}.Run([&] {
    Long count = 0;
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
      if (IsWrapper(child)) ++count;
    }
    return count;
  });
}

}  // namespace varnex
