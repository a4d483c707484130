#include "transport/index_upkeep.hpp"

#include <cstring>

#include "runtime/text.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"
#include "transport/wrapper_names.hpp"

namespace varnex {
namespace {

bool IsPropertyList(pugi::xml_node node) { return xml::ElementNamed(node, "PROPERTIES"); }

bool IsListName(const char* name) { return *name == 'P' && std::strcmp(name, "PROPERTIES") == 0; }
// For the walks over the whole document, which look at every element's name once.
bool IsWrapperName(const char* name) {
  return *name == 'C' && (std::strcmp(name, "COMPONENT") == 0 || std::strcmp(name, "COLLECTION") == 0);
}
// A property list whose nodes are neither wrappers nor lists and hold nothing but text: no
// wrapper, list or handle lies below it.
bool IsPlainList(pugi::xml_node list) {
  for (pugi::xml_node property = list.first_child(); property; property = property.next_sibling()) {
    const char* name = property.name();
    if (IsWrapperName(name) || IsListName(name) || property.first_child().type() == pugi::node_element) return false;
  }
  return true;
}
bool IsAttachmentsName(pugi::xml_node element, const char* name) {
  for (const char* c = name; *c; ++c) {
    if (static_cast<unsigned char>(*c) >= 0x80 || *c == ':') return xml::LocalNameIs(element, "ATTACHMENTS");
  }
  return (*name == 'A' || *name == 'a') && EqualsIgnoreCase(name, "ATTACHMENTS");
}

bool NamedExactly(pugi::xml_node node, const std::string& name) {
  return node.type() == pugi::node_element && name == node.name();
}

// The handle of the component held by a wrapper; 0 when it holds none.
Long HandleInWrapper(const Transport::Impl& impl, pugi::xml_node wrapper) {
  const pugi::xml_node element = wrapper.first_child();
  return element.type() == pugi::node_element ? impl.HandleOf(element) : 0;
}

}  // namespace

IndexUpkeep::Explaining::Explaining(IndexUpkeep& upkeep) : upkeep_(upkeep), changes_before_(upkeep.changes_) {
  ++upkeep_.explaining_;
}

IndexUpkeep::Explaining::~Explaining() {
  --upkeep_.explaining_;
  if (!done_ && upkeep_.changes_ != changes_before_) upkeep_.Unknown();
}

void IndexUpkeep::Reset() {
  seen_.clear();
  children_full_ = properties_full_ = odd_sections_ = false;
  foreign_root_children_ = 0;
  deferred_statuses_.clear();
  deferred_child_cuts_.clear();
  deferred_property_cuts_.clear();
  cut_handles_.clear();
}

void IndexUpkeep::Unknown() {
  children_full_ = properties_full_ = odd_sections_ = true;
}

void IndexUpkeep::AddSeen(Long handle, Visible which) {
  if (handle <= 0) return;
  if (static_cast<std::size_t>(handle) >= seen_.size()) seen_.resize(static_cast<std::size_t>(handle) + 1, 0);
  seen_[static_cast<std::size_t>(handle)] |= which;
}

bool IndexUpkeep::Sees(Long handle, Visible which) const {
  return handle > 0 && static_cast<std::size_t>(handle) < seen_.size() && (seen_[static_cast<std::size_t>(handle)] & which) != 0;
}

void IndexUpkeep::SetSeen(Long handle, std::uint8_t flags) {
  if (handle <= 0) return;
  if (static_cast<std::size_t>(handle) >= seen_.size()) seen_.resize(static_cast<std::size_t>(handle) + 1, 0);
  seen_[static_cast<std::size_t>(handle)] = flags;
}

// The GetComponentXML sections: only the root's own, as long as no other element is named like
// the root and no other section stands under it.
void IndexUpkeep::ExamineName(pugi::xml_node element) {
  if (element.type() != pugi::node_element) return;
  // Only names that begin like the root's or the sections' can matter.
  const char first = *element.name();
  if (first != impl_.root_name[0] && first != 'D' && first != 'P') return;
  if (element != impl_.root && NamedExactly(element, impl_.root_name)) odd_sections_ = true;
  if ((xml::ElementNamed(element, "DOMAIN") || xml::ElementNamed(element, "PROPERTY_DOMAINS")) &&
      NamedExactly(element.parent(), impl_.root_name) && element != impl_.domain_section &&
      element != impl_.property_domain_section) {
    odd_sections_ = true;
  }
}

// An element that no operation explains has come into the tree.
void IndexUpkeep::ExamineAppended(pugi::xml_node element) {
  ExamineName(element);
  const pugi::xml_node parent = element.parent();
  // A wrapper where a rebuild would file it, or a first child that changes what a wrapper holds.
  if (IsSelectedWrapper(element) &&
      (parent == impl_.root || impl_.IsRootNamed(parent) || impl_.HandleOf(parent) != 0)) {
    children_full_ = true;
  }
  if (IsSelectedWrapper(parent) && parent.first_child() == element) children_full_ = true;
  // A property list, or a node joining one.
  if (IsPropertyList(element) || IsPropertyList(parent)) properties_full_ = true;
}

void IndexUpkeep::Appended(pugi::xml_node node) {
  if (explaining_ > 0) {
    ++changes_;
    return;
  }
  if (node.type() != pugi::node_element) {
    if (IsPropertyList(node.parent())) properties_full_ = true;
    return;
  }
  xml::WalkElements(node, [&](pugi::xml_node element) {
    ExamineAppended(element);
    return true;
  });
}

void IndexUpkeep::Detaching(pugi::xml_node node) {
  if (explaining_ > 0) {
    ++changes_;
    return;
  }
  const pugi::xml_node parent = node.parent();
  if (IsSelectedWrapper(parent)) children_full_ = true;
  if (IsPropertyList(parent)) properties_full_ = true;
  if (node == impl_.domain_section || node == impl_.property_domain_section) odd_sections_ = true;
  xml::WalkElements(node, [&](pugi::xml_node element) {
    if (IsSelectedWrapper(element) || impl_.HandleOf(element) != 0) children_full_ = properties_full_ = true;
    if (IsPropertyList(element)) properties_full_ = true;
    return true;
  });
}

void IndexUpkeep::TextReplaced(pugi::xml_node element) {
  if (explaining_ > 0) {
    ++changes_;
    return;
  }
  if (IsPropertyList(element)) properties_full_ = true;
}

void IndexUpkeep::WrapperAdded(Long parent, pugi::xml_node parent_element, pugi::xml_node element, Long handle) {
  const pugi::xml_node wrapper = element.parent();
  ExamineName(wrapper);
  ExamineName(element);
  std::uint8_t seen;
  if (parent == 0) {
    seen = xml::LocalNameIs(impl_.root, "ATTACHMENTS") ? kToChildren : kToChildren | kToProperties;
  } else {
    seen = Sees(parent, kToChildren) ? kToChildren : 0;
    if (Sees(parent, kToProperties)) seen |= kToProperties;
  }
  if (xml::LocalNameIs(element, "ATTACHMENTS")) seen &= static_cast<std::uint8_t>(~kToProperties);
  SetSeen(handle, seen);

  // The wrapper joins its parent's property list when the parent is itself a list.
  if (IsPropertyList(parent_element)) properties_full_ = true;
  // A name element named like a list is a list without a handle of its own.
  if (IsPropertyList(element)) properties_full_ = true;
  if (IsSelectedWrapper(element) && impl_.IsRootNamed(wrapper)) children_full_ = true;
  if (children_full_) return;
  const bool deleted = GetNodeStatus(element) == csDeleted;
  if (parent == 0) {
    impl_.children.Append(0, handle, deleted);
  } else if (impl_.IsRootNamed(parent_element)) {
    // Filed under the root, among the root's own children in document order.
    children_full_ = true;
  } else if (seen & kToChildren) {
    impl_.children.Append(parent, handle, deleted);
  }
}

void IndexUpkeep::PropertyAdded(Long handle, pugi::xml_node list, bool new_list, pugi::xml_node property) {
  if (new_list) ExamineName(list);
  ExamineName(property);
  // A list of the root, or one named like a list inside a list, has no handle to be filed under.
  if (IsPropertyList(property) || (new_list && handle == 0 && IsPropertyList(list))) properties_full_ = true;
  if (IsSelectedWrapper(property) && impl_.IsRootNamed(list)) children_full_ = true;
  if (properties_full_ || !IsPropertyList(list) || !Sees(handle, kToProperties)) return;
  if (new_list) impl_.properties.StartList(handle);
  impl_.properties.Append(handle, property);
}

void IndexUpkeep::StatusChanged(Long handle) {
  if (children_full_) return;
  if (impl_.child_indexes_dirty) {
    impl_.children.SetDeleted(handle, GetNodeStatus(impl_.handles.NodeOf(handle)) == csDeleted);
  } else {
    deferred_statuses_.push_back(handle);
  }
}

void IndexUpkeep::CutOut(pugi::xml_node wrapper) {
  const std::size_t first = cut_handles_.size();
  xml::WalkElements(wrapper, [&](pugi::xml_node element) {
    if (IsSelectedWrapper(element)) {
      const Long handle = HandleInWrapper(impl_, element);
      if (handle > 0) {
        cut_handles_.push_back(handle);
        SetSeen(handle, 0);
      }
    }
    return true;
  });
  const Cut cut{first, cut_handles_.size()};
  // Children filed under the root from inside the subtree, or a list without a handle there,
  // are not followed one by one.
  if (foreign_root_children_ > 0) children_full_ = true;
  if (impl_.properties.Unkeyed() > 0) properties_full_ = true;
  bool kept = false;
  if (!children_full_) {
    if (impl_.child_indexes_dirty) {
      ApplyCut(cut, true, false);
    } else {
      deferred_child_cuts_.push_back(cut);
      kept = true;
    }
  }
  if (!properties_full_) {
    if (impl_.prop_indexes_dirty) {
      ApplyCut(cut, false, true);
    } else {
      deferred_property_cuts_.push_back(cut);
      kept = true;
    }
  }
  if (!kept) cut_handles_.resize(first);
}

void IndexUpkeep::ApplyCut(const Cut& cut, bool children, bool properties) {
  if (cut.first == cut.last) return;
  if (children) impl_.children.Remove(cut_handles_[cut.first]);
  for (std::size_t i = cut.first; i < cut.last; ++i) {
    if (children) impl_.children.ClearChildrenOf(cut_handles_[i]);
    if (properties) impl_.properties.Drop(cut_handles_[i]);
  }
}

void IndexUpkeep::UpdateChildren() {
  if (children_full_) {
    RebuildChildren();
    children_full_ = false;
  } else {
    for (const Long handle : deferred_statuses_) {
      impl_.children.SetDeleted(handle, GetNodeStatus(impl_.handles.NodeOf(handle)) == csDeleted);
    }
    for (const Cut& cut : deferred_child_cuts_) ApplyCut(cut, true, false);
  }
  deferred_statuses_.clear();
  deferred_child_cuts_.clear();
  if (deferred_property_cuts_.empty()) cut_handles_.clear();
  impl_.children.ForgetReads();
}

void IndexUpkeep::UpdateProperties() {
  if (properties_full_) {
    deferred_property_cuts_.clear();
    RebuildProperties();
    properties_full_ = false;
  } else {
    for (const Cut& cut : deferred_property_cuts_) ApplyCut(cut, false, true);
    deferred_property_cuts_.clear();
  }
  if (deferred_child_cuts_.empty()) cut_handles_.clear();
}

// The rebuild of the child index from the document: every wrapper selected by
// "//COMPONENT | //COLLECTION", in document order, attachments included, filed under the handle
// of its parent ("0" for an element named like the root).
void IndexUpkeep::RebuildChildren() {
  for (std::uint8_t& seen : seen_) seen &= static_cast<std::uint8_t>(~kToChildren);
  foreign_root_children_ = 0;
  std::vector<ChildIndex::Entry> entries;
  // A wrapper among plain properties is filed only when its list is named like the root.
  const bool lists_hold_entries = EqualsIgnoreCase(impl_.root_name, "PROPERTIES");
  if (impl_.root) {
    xml::WalkElements(impl_.root, [&](pugi::xml_node element) {
      const char* name = element.name();
      if (IsListName(name)) return lists_hold_entries || !IsPlainList(element);
      if (!IsWrapperName(name)) return true;
      const Long child = HandleInWrapper(impl_, element);
      AddSeen(child, kToChildren);
      const pugi::xml_node parent = element.parent();
      const bool root_named = impl_.IsRootNamed(parent);
      const Long parent_handle = root_named ? 0 : impl_.HandleOf(parent);
      // A wrapper whose parent has no handle is filed under a key no caller can name.
      if (parent_handle != 0 || root_named) {
        if (root_named && parent != impl_.root) ++foreign_root_children_;
        entries.push_back({parent_handle, child, GetNodeStatus(element.first_child()) == csDeleted});
      }
      return true;
    });
  }
  impl_.children.Build(entries);
}

// The rebuild of the property index: every "PROPERTIES" element outside attachments, filed under
// the handle of its parent. A second list under one key fails (457), as the platform's did.
void IndexUpkeep::RebuildProperties() {
  for (std::uint8_t& seen : seen_) seen &= static_cast<std::uint8_t>(~kToProperties);
  impl_.properties.Reset();
  if (!impl_.root) return;
  xml::WalkElements(impl_.root, [&](pugi::xml_node element) {
    const char* name = element.name();
    if (IsAttachmentsName(element, name)) return false;  // attachments are not indexed
    if (IsWrapperName(name)) {
      const pugi::xml_node component = element.first_child();
      if (component.type() == pugi::node_element && !IsAttachmentsName(component, component.name())) {
        AddSeen(impl_.HandleOf(component), kToProperties);
      }
    } else if (IsListName(name)) {
      impl_.properties.AddList(impl_.HandleOf(element.parent()), element);
      return !IsPlainList(element);
    }
    return true;
  });
}

}  // namespace varnex
