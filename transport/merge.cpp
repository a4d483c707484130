// Merging received documents into the own document.
//
// A merge matches nothing: every component, collection, property, attribute, attachment, link,
// domain and domain item of the incoming document is added again through the public building
// operations, so that the copies get fresh handles and enter the indexes as if built by hand.
#include <string>
#include <vector>

#include "runtime/memory_budget.hpp"
#include "runtime/nested_trap.hpp"
#include "runtime/text.hpp"
#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/answer_size.hpp"
#include "transport/node_status.hpp"
#include "transport/root_wrappers.hpp"
#include "transport/transport_impl.hpp"
#include "transport/wrapper_names.hpp"

namespace varnex {
namespace {

// The component node of a wrapper: its first child, taken as an element. Another kind of node
// cannot be taken as one (13); no child at all fails later, when the copy reads its parent.
pugi::xml_node ComponentNodeOf(pugi::xml_node wrapper) {
  const pugi::xml_node node = wrapper.first_child();
  if (node && node.type() != pugi::node_element) throw AutomationError::Runtime(errTypeMismatch);
  return node;
}

std::string NameOf(pugi::xml_node node) { return std::string(xml::LocalName(node)); }

std::string AttributeText(pugi::xml_node node, const char* name) {
  const char* value = xml::AttributeOrNull(node, name);
  return value ? value : "";
}

// Creates the copy of one incoming component node with its attributes, attachments and
// prototype, and answers its handle. Properties and sub-components follow as the caller walks
// the node's children.
Long CopyComponent(Transport::Impl& impl, Long parent, pugi::xml_node node) {
  Transport& self = impl.self();
  const enComponentStatus status = GetNodeStatus(node);
  if (!node) throw AutomationError::Runtime(errObjectNotSet);
  // Only a component keeps its status; a collection always arrives normal.
  const Long handle = xml::LocalNameIs(node.parent(), "COMPONENT") ? self.AddComponent(parent, NameOf(node), status)
                                                                    : self.AddCollection(parent, NameOf(node));
  for (const pugi::xml_attribute attribute : node.attributes()) {
    if (!EqualsIgnoreCase(attribute.name(), "STATUS")) {
      self.AddCompAttribute(handle, attribute.name(), attribute.value());
    }
  }
  if (const pugi::xml_node attachments = xml::ChildElement(node, "ATTACHMENTS")) {
    std::string text;
    for (pugi::xml_node attachment = attachments.first_child(); attachment; attachment = attachment.next_sibling()) {
      text.clear();
      xml::SerializeTo(attachment, text);
      const char* persist = xml::AttributeOrNull(attachment, "persist");
      self.AddCompAttachment(handle, text, persist && EqualsIgnoreCase(persist, "true") ? vbTrue : vbFalse);
    }
  }
  if (const pugi::xml_node prototype = xml::ChildElement(node, "PROTOTYPE")) {
    impl.Document().AppendCopy(impl.NodeOf(handle), prototype);
    // The element moves over: it leaves the incoming tree (kept aside, alive, at the top of the
    // incoming document), so that a second copy of this node, or a later search, no longer
    // finds it there.
    node.root().append_move(prototype);
  }
  return handle;
}

void CopyProperties(Transport& self, Long handle, pugi::xml_node list) {
  for (pugi::xml_node property = list.first_child(); property; property = property.next_sibling()) {
    self.AddCompProperty(handle, NameOf(property), xml::Text(property), GetNodeStatus(property),
                         AttributeText(property, "ORIGINAL"));
  }
}

}  // namespace

Long Transport::MergeDocument(const std::string& strDoc, Long lngParent) {
  return Trap{"MergeDocument"}.Run([&] {
    RefuseNul(strDoc);
    return impl_->MergeTransportIn(lngParent, strDoc);
  });
}

Long Transport::Impl::MergeTransportIn(Long parent, const std::string& text) {
  // Text that does not parse leaves the incoming document empty: nothing is added.
  pugi::xml_document incoming;
  xml::LoadText(incoming, text);
  return MergeTransportIn(parent, incoming);
}

Long Transport::Impl::MergeTransportIn(Long parent, pugi::xml_document& incoming) {
  return Trap{"MergeTransportIn"}.Run([&] {
    const pugi::xml_node top = incoming.document_element();
    // Every wrapper whose parent is named like the own root, wherever it stands, in document
    // order: a component named like the root has its wrappers taken here as well as inside it.
    const std::vector<pugi::xml_node> wrappers = SelectRootWrappers(incoming, root_name);
    budget::Require(WrappersTaken(wrappers), budget::kComponentCost);
    for (const pugi::xml_node wrapper : wrappers) RecurseComponents(parent, ComponentNodeOf(wrapper));

    // The first link section and the first domain section under an element named like the root,
    // looked for once the components (and the prototypes they took along) are done.
    pugi::xml_node links, domains;
    xml::WalkElements(top, [&](pugi::xml_node element) {
      if (links && domains) return false;
      if (root_name == element.parent().name()) {
        if (!links && xml::ElementNamed(element, "PROPERTY_DOMAINS")) links = element;
        if (!domains && xml::ElementNamed(element, "DOMAIN")) domains = element;
      }
      return true;
    });
    if (links) {
      for (pugi::xml_node link = links.first_child(); link; link = link.next_sibling()) {
        self().AddPropDomain(NameOf(link), xml::Text(link));
      }
    }
    if (domains) {
      for (pugi::xml_node domain = domains.first_child(); domain; domain = domain.next_sibling()) {
        const Long handle =
            self().AddDomain(NameOf(domain), AttributeText(domain, "CODE"), AttributeText(domain, "DESC"));
        // A domain that exists already takes none of the incoming items.
        if (handle <= 0) continue;
        for (pugi::xml_node item = domain.first_child(); item; item = item.next_sibling()) {
          const Long number = self().AddDomainItem(handle);
          for (pugi::xml_node property = item.first_child(); property; property = property.next_sibling()) {
            self().AddDomainProperty(handle, number, NameOf(property), xml::Text(property));
          }
        }
      }
    }
    return Long{1};
  });
}

// Copies a component node and its whole subtree. The walk keeps its own stack, so documents of
// any depth can be merged; a failure carries one "RecurseComponents: " for every level down to
// the copy that failed, as nested calls would give.
void Transport::Impl::RecurseComponents(Long parent, pugi::xml_node node) {
  struct Level {
    Long handle;         // the copy
    pugi::xml_node next;  // the incoming child to take next
  };
  std::vector<Level> levels;
  std::size_t depth = 1;
  RunNested(Trap{"RecurseComponents"}, depth, [&] {
    const Long handle = CopyComponent(*this, parent, node);
    levels.push_back({handle, node.first_child()});
    while (!levels.empty()) {
      depth = levels.size();
      const pugi::xml_node child = levels.back().next;
      if (!child) {
        levels.pop_back();
        continue;
      }
      levels.back().next = child.next_sibling();
      const Long owner = levels.back().handle;
      // Properties and sub-components are taken in the order in which they stand.
      if (xml::LocalNameIs(child, "PROPERTIES")) CopyProperties(self(), owner, child);
      if (IsWrapper(child)) {
        const pugi::xml_node component = ComponentNodeOf(child);
        depth = levels.size() + 1;
        const Long copy = CopyComponent(*this, owner, component);
        levels.push_back({copy, component.first_child()});
      }
    }
  });
}

}  // namespace varnex
