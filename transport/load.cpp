// Loading a whole document in one pass.
//
// TransportDoc put adds the text's contents to an empty document through the merge, which
// re-creates every node through the building operations. For text in the form those operations
// write (every document this library gives out whole is), the merge would rebuild the parsed
// tree node for node. Such text is parsed straight into the own document instead, and handles,
// links and domain entries are issued in the order the merge would issue them; the child and
// property indexes are left marked stale, as the merge leaves them, to be rebuilt in full on the
// first read. Text in any other form goes through the merge.
#include <cstring>
#include <string>
#include <vector>

#include "runtime/text.hpp"
#include "runtime/xml.hpp"
#include "transport/node_status.hpp"
#include "transport/transport_impl.hpp"

namespace varnex {
namespace {

// Whether a name is the given literal: compared in line, stopping at the first difference.
template <std::size_t N>
bool Is(const char* name, const char (&literal)[N]) {
  for (std::size_t i = 0; i < N; ++i) {
    if (name[i] != literal[i]) return false;
  }
  return true;
}

template <std::size_t N>
bool Named(pugi::xml_node node, const char (&name)[N]) {
  return node.type() == pugi::node_element && Is(node.name(), name);
}
bool IsWrapperNamed(pugi::xml_node node) { return Named(node, "COMPONENT") || Named(node, "COLLECTION"); }
bool IsWrapperName(const char* name) { return Is(name, "COMPONENT") || Is(name, "COLLECTION"); }

// A name the building operations write as it stands: upper case, without a prefix.
bool IsBuiltName(const char* name) {
  // Upper-case ASCII letters, digits, "_", "-" and ".", a letter or "_" first: the usual names.
  bool plain = (*name >= 'A' && *name <= 'Z') || *name == '_';
  for (const char* c = name; plain && *c; ++c) {
    plain = (*c >= 'A' && *c <= 'Z') || (*c >= '0' && *c <= '9') || *c == '_' || *c == '-' || *c == '.';
  }
  if (plain) return true;
  return std::strchr(name, ':') == nullptr && UCase(name) == name && xml::IsElementName(name);
}

// The text a building operation sets: nothing, or one text node that is not empty.
bool IsBuiltText(pugi::xml_node element) {
  const pugi::xml_node text = element.first_child();
  return !text || (text.type() == pugi::node_pcdata && !text.next_sibling() && *text.value() != '\0');
}

// Checks the parsed tree against what the merge would build from it, and lists in merge order
// what it would give handles to.
class OnePassForm {
 public:
  explicit OnePassForm(const std::string& root_name) : root_name_(root_name) {}

  std::vector<pugi::xml_node> components;  // name elements, in the order handles are issued
  std::vector<pugi::xml_node> links;
  bool any_property = false;
  // What the rebuilds of the child and property indexes would find, while no name asks for a
  // closer look (a list, wrapper or attachments container made by a name, or one in a prototype).
  std::vector<ChildIndex::Entry> children;
  struct List {
    Long handle;
    std::size_t start;  // into property_nodes
    std::size_t count;
  };
  std::vector<List> lists;
  std::vector<pugi::xml_node> property_nodes;  // the lists' nodes, one after the other
  bool plain = true;

  bool Check(pugi::xml_node root) {
    if (root.first_attribute()) return false;
    const pugi::xml_node domains = root.first_child();
    const pugi::xml_node link_section = domains.next_sibling();
    if (!Named(domains, "DOMAIN") || !Named(link_section, "PROPERTY_DOMAINS")) return false;
    if (!Domains(domains) || !Links(link_section)) return false;
    for (pugi::xml_node wrapper = link_section.next_sibling(); wrapper; wrapper = wrapper.next_sibling()) {
      if (!Components(wrapper)) return false;
    }
    return true;
  }

 private:
  // No element but the root may be named like it: the selections and the child index treat such
  // elements apart. Names that the indexes look at are noted.
  bool NameAllowed(const char* name) {
    if (Is(name, "PROPERTIES") || Is(name, "ATTACHMENTS") || IsWrapperName(name)) plain = false;
    // Most names differ from the root's in their first letter already.
    if ((name[0] | ' ') != (root_name_[0] | ' ') && static_cast<unsigned char>(name[0]) < 0x80 &&
        static_cast<unsigned char>(root_name_[0]) < 0x80) {
      return true;
    }
    return !EqualsIgnoreCase(name, root_name_);
  }

  bool Domains(pugi::xml_node section) {
    if (section.first_attribute()) return false;
    std::vector<std::string> names;
    for (pugi::xml_node domain = section.first_child(); domain; domain = domain.next_sibling()) {
      if (domain.type() != pugi::node_element || !IsBuiltName(domain.name()) || !NameAllowed(domain.name())) return false;
      for (const std::string& seen : names) {
        if (seen == domain.name()) return false;  // a second domain of a name is not taken
      }
      names.emplace_back(domain.name());
      // "CODE" then "DESC", each only when not empty.
      pugi::xml_attribute attribute = domain.first_attribute();
      if (attribute && Is(attribute.name(), "CODE") && *attribute.value()) attribute = attribute.next_attribute();
      if (attribute && Is(attribute.name(), "DESC") && *attribute.value()) attribute = attribute.next_attribute();
      if (attribute) return false;
      for (pugi::xml_node item = domain.first_child(); item; item = item.next_sibling()) {
        if (!Named(item, "ITEM") || item.first_attribute()) return false;
        std::vector<std::string> properties;
        for (pugi::xml_node property = item.first_child(); property; property = property.next_sibling()) {
          if (property.type() != pugi::node_element || !IsBuiltName(property.name()) || property.first_attribute() ||
              !IsBuiltText(property) || !NameAllowed(property.name())) {
            return false;
          }
          for (const std::string& seen : properties) {
            if (seen == property.name()) return false;  // the merge would fail on it
          }
          properties.emplace_back(property.name());
        }
      }
    }
    return true;
  }

  bool Links(pugi::xml_node section) {
    if (section.first_attribute()) return false;
    std::vector<std::string> names;
    for (pugi::xml_node link = section.first_child(); link; link = link.next_sibling()) {
      if (link.type() != pugi::node_element || !IsBuiltName(link.name()) || link.first_attribute() ||
          !IsBuiltText(link) || !NameAllowed(link.name())) {
        return false;
      }
      for (const std::string& seen : names) {
        if (seen == link.name()) return false;
      }
      names.emplace_back(link.name());
      links.push_back(link);
    }
    return true;
  }

  // A component's own attributes: its status first (components only, in its written form), then
  // free attributes, none of them named like the status.
  static bool ComponentAttributes(pugi::xml_node element, bool collection) {
    pugi::xml_attribute attribute = element.first_attribute();
    if (!collection && attribute && Is(attribute.name(), "STATUS")) {
      const char* status = attribute.value();
      if (!Is(status, "NEW") && !Is(status, "DELETED") && !Is(status, "MODIFIED")) {
        return false;
      }
      attribute = attribute.next_attribute();
    }
    for (; attribute; attribute = attribute.next_attribute()) {
      if (EqualsIgnoreCase(attribute.name(), "STATUS") || std::strchr(attribute.name(), ':') ||
          !xml::IsElementName(attribute.name())) {
        return false;
      }
      for (pugi::xml_attribute other = attribute.next_attribute(); other; other = other.next_attribute()) {
        if (std::strcmp(other.name(), attribute.name()) == 0) return false;
      }
    }
    return true;
  }

  // A subtree taken over as text (an attachment) or as it stands (a prototype): no element named
  // like the root; for an attachment, nothing that a reload of its text alone could change.
  bool Fragment(pugi::xml_node top, bool reloaded) {
    bool fine = true;
    const bool was_plain = plain;
    xml::WalkElements(top, [&](pugi::xml_node element) {
      if (!NameAllowed(element.name())) fine = false;
      if (reloaded) {
        for (pugi::xml_attribute attribute : element.attributes()) {
          if (std::strpbrk(attribute.value(), "\r\n\t")) fine = false;
        }
        for (pugi::xml_node child : element.children()) {
          if (child.type() == pugi::node_element) continue;
          const char* value = child.value();
          if (child.type() != pugi::node_pcdata || std::strchr(value, '\r') ||
              value[std::strspn(value, " \t\n")] == '\0') {
            fine = false;
          }
        }
      }
      return fine;
    });
    // Attachments are taken over as text and looked at by neither index.
    if (reloaded) plain = was_plain;
    return fine;
  }

  bool Attachments(pugi::xml_node list) {
    if (list.first_attribute() || !list.first_child()) return false;
    for (pugi::xml_node attachment = list.first_child(); attachment; attachment = attachment.next_sibling()) {
      if (attachment.type() != pugi::node_element || !Fragment(attachment, true)) return false;
      // A persistent attachment carries the mark as written: "true".
      const char* persist = xml::AttributeOrNull(attachment, "persist");
      if (persist && EqualsIgnoreCase(persist, "true") && !Is(persist, "true")) return false;
    }
    return true;
  }

  bool Properties(pugi::xml_node list) {
    if (list.first_attribute() || !list.first_child()) return false;
    for (pugi::xml_node property = list.first_child(); property; property = property.next_sibling()) {
      property_nodes.push_back(property);
      if (property.type() != pugi::node_element || !IsBuiltName(property.name()) || !IsBuiltText(property) ||
          !NameAllowed(property.name())) {
        return false;
      }
      // "xml:space" first, then the status in its written form, then a non-empty "ORIGINAL".
      pugi::xml_attribute attribute = property.first_attribute();
      if (!attribute || !Is(attribute.name(), "xml:space") || !Is(attribute.value(), "preserve")) {
        return false;
      }
      attribute = attribute.next_attribute();
      if (attribute && Is(attribute.name(), "STATUS")) {
        const char* status = attribute.value();
        if (!Is(status, "NEW") && !Is(status, "DELETED") && !Is(status, "MODIFIED")) {
          return false;
        }
        attribute = attribute.next_attribute();
      }
      if (attribute && Is(attribute.name(), "ORIGINAL") && *attribute.value()) attribute = attribute.next_attribute();
      if (attribute) return false;
    }
    any_property = true;
    return true;
  }

  // A wrapper and its whole subtree, depth first, on a stack of its own.
  bool Components(pugi::xml_node top) {
    std::vector<pugi::xml_node> next;  // per open component: the child to look at next
    std::vector<Long> handles;         // per open component: its handle
    const auto enter = [&](pugi::xml_node wrapper) {
      const pugi::xml_node element = wrapper.first_child();
      if (!IsWrapperNamed(wrapper) || wrapper.first_attribute() || element.type() != pugi::node_element ||
          element.next_sibling() || !IsBuiltName(element.name()) || !NameAllowed(element.name()) ||
          !xml::IsElementName(element.name()) || !ComponentAttributes(element, Named(wrapper, "COLLECTION"))) {
        return false;
      }
      components.push_back(element);
      const Long handle = static_cast<Long>(components.size());
      const pugi::xml_attribute status = element.first_attribute();
      children.push_back({handles.empty() ? 0 : handles.back(), handle,
                          status && Is(status.name(), "STATUS") && Is(status.value(), "DELETED")});
      handles.push_back(handle);
      pugi::xml_node child = element.first_child();
      if (Named(child, "ATTACHMENTS")) {
        if (!Attachments(child)) return false;
        child = child.next_sibling();
      }
      if (Named(child, "PROTOTYPE")) {
        if (!Fragment(child, false)) return false;
        child = child.next_sibling();
      }
      next.push_back(child);
      return true;
    };
    if (!enter(top)) return false;
    std::vector<bool> listed{false};  // per open component: its properties were met
    while (!next.empty()) {
      const pugi::xml_node child = next.back();
      if (!child) {
        next.pop_back();
        listed.pop_back();
        handles.pop_back();
        continue;
      }
      next.back() = child.next_sibling();
      if (Named(child, "PROPERTIES") && !listed.back()) {
        listed.back() = true;
        const std::size_t start = property_nodes.size();
        if (!Properties(child)) return false;
        lists.push_back({handles.back(), start, property_nodes.size() - start});
      } else if (IsWrapperNamed(child)) {
        if (!enter(child)) return false;
        listed.push_back(false);
      } else {
        return false;
      }
    }
    return true;
  }

  const std::string& root_name_;
};

}  // namespace

bool Transport::Impl::LoadInOnePass(const std::string& text) {
  auto loaded = std::make_unique<xml::XmlDocument>();
  if (!xml::LoadText(loaded->document(), text)) return false;
  const pugi::xml_node top = loaded->document().first_child();
  if (top.type() != pugi::node_element || top.next_sibling() || std::strchr(top.name(), ':') ||
      !xml::IsElementName(top.name())) {
    return false;
  }
  const std::string name = top.name();
  OnePassForm form(name);
  if (!form.Check(top)) return false;

  // The state the merge into an empty document named like the root would leave.
  root_name = name;
  document = std::move(loaded);
  document->Observe(&upkeep);
  root = top;
  domain_section = top.first_child();
  property_domain_section = domain_section.next_sibling();
  handles.Clear();
  handles.Reserve(form.components.size() + form.links.size());
  children.Build({});
  properties.Reset();
  domains.Reset();
  upkeep.Reset();
  last_handle = 0;
  for (const pugi::xml_node component : form.components) IssueHandle(component);
  const Long last_component_handle = last_handle;
  for (const pugi::xml_node link : form.links) {
    const Long handle = ++last_handle;
    domains.prop_domain_index.Add(FormatLong(handle), link);
    domains.prop_domain_index.Add(DomainTables::LinkKey(link.name()), handle);
    ++domains.prop_domain_count;
  }
  for (pugi::xml_node domain = domain_section.first_child(); domain; domain = domain.next_sibling()) {
    const Long handle = ++domains.domain_counter;
    domains.domain_index.Add(DomainTables::Key(handle), domain);
    domains.domain_index.Add(domain.name(), handle);
    ++domains.domain_counts.Item("0");
    Long number = 0;
    for (pugi::xml_node item = domain.first_child(); item; item = item.next_sibling()) {
      domains.domain_index.Add(DomainTables::Key(handle, ++number), item);
      Long property_number = 0;
      for (pugi::xml_node property = item.first_child(); property; property = property.next_sibling()) {
        domains.domain_index.Add(DomainTables::Key(handle, number, ++property_number), property);
        domains.domain_index.Add(DomainTables::Key(handle, number, std::string_view(property.name())), property_number);
      }
      domains.domain_counts.Set(DomainTables::Key(handle, number), property_number);
    }
    domains.domain_counts.Set(DomainTables::Key(handle), number);
  }
  // Marked stale as the building operations mark them. The indexes hold what their rebuild would
  // find now, and follow later changes from here; unless names ask for a closer look, and then
  // the next rebuilds are full ones.
  child_indexes_dirty = !form.components.empty();
  prop_indexes_dirty = form.any_property;
  if (form.plain) {
    children.Build(form.children);
    properties.Reserve(last_component_handle, form.property_nodes.size());
    for (const OnePassForm::List& list : form.lists) {
      properties.AddNodes(list.handle, form.property_nodes.data() + list.start, list.count);
    }
    upkeep.SeeAll(last_component_handle);
  } else {
    upkeep.RebuildInFull();
  }
  return true;
}

}  // namespace varnex
