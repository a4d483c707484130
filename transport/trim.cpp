// Reducing the core's documents to what must travel (the walk itself is in trim_walk.hpp). The
// same walk either removes what it condemns or only records it (for generating text from the
// own document, which must not change).
#include "runtime/text.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"
#include "transport/wrapper_names.hpp"
#include "transport/trim_marks.hpp"
#include "transport/trim_walk.hpp"

namespace varnex {
namespace {

// The core's documents as the reduction sees them.
struct PugiDom {
  using Node = pugi::xml_node;
  static Node FirstChild(Node node) { return node.first_child(); }
  static Node NextSibling(Node node) { return node.next_sibling(); }
  static bool IsWrapper(Node node) { return varnex::IsWrapper(node); }
  static Node ChildElement(Node node, const char* name) { return xml::ChildElement(node, name); }
  static bool ElementNamed(Node node, const char* name) { return xml::ElementNamed(node, name); }
  static enComponentStatus Status(Node node) { return GetNodeStatus(node); }
  static trim::Persist Persistence(Node attachment) {
    const char* persist = xml::AttributeOrNull(attachment, "persist");
    if (!persist) return trim::Persist::kMissing;
    return EqualsIgnoreCase(persist, "true") ? trim::Persist::kTrue : trim::Persist::kOther;
  }
};

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
  // The parent and its ancestors lose a descendant: noted while the walk stands there, so that
  // the removed nodes need no second visit.
  void Remove(pugi::xml_node parent, pugi::xml_node child) const {
    marks.removed.Insert(child.internal_object());
    for (pugi::xml_node above = parent; above; above = above.parent()) {
      if (!marks.changed.Insert(above.internal_object())) break;
    }
  }
};

}  // namespace

void Transport::TrimDocument(pugi::xml_document&, pugi::xml_node& nNode, Boolean& boolKill) {
  PugiDom dom;
  trim::TrimWalk(dom, nNode, boolKill, false, Removing{});
}

void Transport::TrimDocument2(pugi::xml_document&, pugi::xml_node& nNode, Boolean& boolKill) {
  PugiDom dom;
  trim::TrimWalk(dom, nNode, boolKill, true, Removing{});
}

bool Transport::Impl::MarkTrim(pugi::xml_node node, TrimMarks& marks) {
  Boolean kill = vbFalse;
  PugiDom dom;
  return trim::TrimWalk(dom, node, kill, false, Recording{marks});
}

Long Transport::Impl::HasModifications(pugi::xml_node node) {
  PugiDom dom;
  return trim::HasModifications(dom, node);
}

Long Transport::Impl::ChildCompCount(pugi::xml_node node) {
  PugiDom dom;
  return trim::ChildCompCount(dom, node);
}

bool Transport::Impl::NodeHasPersistantAttachments(pugi::xml_node node) {
  PugiDom dom;
  return trim::NodeHasPersistantAttachments(dom, node);
}

}  // namespace varnex
