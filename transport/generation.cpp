// Giving the document out as text: whole, reduced to its changes, or without the domain sections.
//
// The reduced forms are those of a working copy: the document's text loaded afresh, trimmed
// (short form only), its top-level wrappers written under bare root tags. Loading that text gives
// back the visible tree node for node, except for text that the loading rules change: blank-only
// text outside xml:space="preserve" is dropped, adjacent text nodes are joined, CR line ends become
// LF (not in processing instructions). So the text is written straight from the own document,
// leaving out what the reduction would remove, and its line ends are normalised; the copy is
// really made only when that cannot give the same text. The own document always loads when it has
// a root: element and attribute names are checked when they are set.
#include <cstring>

#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/root_wrappers.hpp"
#include "transport/transport_impl.hpp"
#include "transport/trim_marks.hpp"

namespace varnex {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// Turns text written from the own document into the text written from its reload: CR line ends
// become LF. False when the text alone cannot tell: blank-only text between two tags (dropped by
// a reload unless xml:space="preserve" holds), or a CR that a processing instruction may hold.
bool AsReloaded(std::string& text) {
  for (std::size_t at = text.find('>'); at != std::string::npos; at = text.find('>', at + 1)) {
    std::size_t end = at + 1;
    while (end < text.size() && IsBlank(text[end])) ++end;
    if (end > at + 1 && end < text.size() && text[end] == '<') return false;
  }
  if (text.find('\r') == std::string::npos) return true;
  if (text.find("<?") != std::string::npos) return false;
  std::string normalised;
  normalised.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\r') {
      normalised += text[i];
      continue;
    }
    normalised += '\n';
    if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
  }
  text.swap(normalised);
  return true;
}

// Writes elements whose subtree lost nodes: their tags come from a copy of the element alone.
class TagWriter {
 public:
  // "<NAME attributes>", or "<NAME attributes/>" for an element left without children.
  void Open(pugi::xml_node element, bool empty, std::string& out) {
    scratch_.reset();
    pugi::xml_node copy = scratch_.append_child(element.name());
    for (const pugi::xml_attribute attribute : element.attributes()) {
      copy.append_attribute(attribute.name()).set_value(attribute.value());
    }
    if (empty) {
      xml::SerializeTo(copy, out);
      return;
    }
    // "<NAME ...>x</NAME>" without "x</NAME>".
    copy.append_child(pugi::node_pcdata).set_value("x");
    xml::SerializeTo(copy, out);
    out.resize(out.size() - std::strlen(element.name()) - 4);
  }

 private:
  pugi::xml_document scratch_;
};

// Appends the text of `top` without the nodes that the marks remove.
void WriteKept(pugi::xml_node top, const TrimMarks& marks, TagWriter& tags, std::string& out) {
  const auto changed = [&](pugi::xml_node node) { return marks.changed.count(node.internal_object()) != 0; };
  const auto kept_from = [&](pugi::xml_node node) {
    while (node && marks.removed.count(node.internal_object()) != 0) node = node.next_sibling();
    return node;
  };
  if (!changed(top)) {
    xml::SerializeTo(top, out);
    return;
  }
  struct Open {
    pugi::xml_node element;
    pugi::xml_node next;  // the next kept child to write
  };
  std::vector<Open> open;
  const auto enter = [&](pugi::xml_node element) {
    const pugi::xml_node first = kept_from(element.first_child());
    tags.Open(element, !first, out);
    if (first) open.push_back({element, first});
  };
  enter(top);
  while (!open.empty()) {
    Open& current = open.back();
    const pugi::xml_node child = current.next;
    if (!child) {
      out += "</";
      out += current.element.name();
      out += '>';
      open.pop_back();
      continue;
    }
    current.next = kept_from(child.next_sibling());
    if (changed(child)) {
      enter(child);
    } else {
      xml::SerializeTo(child, out);
    }
  }
}

// "<R>", the text of every selected wrapper, "</R>": the root name goes in as it stands.
std::string OpenRoot(const std::string& root_name) {
  std::string text = "<";
  text += root_name;
  text += ">";
  return text;
}
void CloseRoot(const std::string& root_name, std::string& text) {
  text += "</";
  text += root_name;
  text += ">";
}

std::string WrapUnderRoot(const std::string& root_name, const std::vector<pugi::xml_node>& wrappers) {
  std::string text = OpenRoot(root_name);
  for (const pugi::xml_node wrapper : wrappers) xml::SerializeTo(wrapper, text);
  CloseRoot(root_name, text);
  return text;
}

}  // namespace

std::string Transport::GenerateTransportDoc(enTransportMode tmMode) {
  return Trap{"GenerateTransportDoc"}.Run([&] {
    switch (tmMode) {
      case tmFull: return impl_->Document().Serialize();
      case tmShort: return impl_->GetModifiedXML();
      case tmMedium: return impl_->GetModifiedXML2();
      default: return std::string();
    }
  });
}

std::string Transport::Impl::GetModifiedXML() {
  return Trap{"GetModifiedXML"}.Run([&] {
    if (root) {
      TrimMarks marks;
      if (MarkTrim(SelectFirstNamed(root, root_name), marks)) {
        const auto removed = [&](pugi::xml_node node) {
          for (; node && node != root; node = node.parent()) {
            if (marks.removed.count(node.internal_object()) != 0) return true;
          }
          return false;
        };
        TagWriter tags;
        std::string text = OpenRoot(root_name);
        for (const pugi::xml_node wrapper :
             SelectRootWrappers(root, root_name, domain_section, property_domain_section)) {
          if (!removed(wrapper)) WriteKept(wrapper, marks, tags, text);
        }
        CloseRoot(root_name, text);
        if (AsReloaded(text)) return text;
      }
    }
    // The working copy itself; when the text does not load it stays empty, and the trim fails.
    pugi::xml_document copy;
    xml::LoadText(copy, Document().Serialize());
    pugi::xml_node copy_root = SelectFirstNamed(copy, root_name);
    Boolean kill = vbFalse;
    self.TrimDocument(copy, copy_root, kill);
    return WrapUnderRoot(root_name, SelectRootWrappers(copy, root_name));
  });
}

std::string Transport::Impl::GetModifiedXML2() {
  return Trap{"GetModifiedXML2"}.Run([&] {
    if (root) {
      std::string text =
          WrapUnderRoot(root_name, SelectRootWrappers(root, root_name, domain_section, property_domain_section));
      if (AsReloaded(text)) return text;
    }
    pugi::xml_document copy;
    if (!xml::LoadText(copy, Document().Serialize())) {
      // The bad-format failure is raised with error number 0, which the runtime refuses with its
      // own invalid-argument error.
      throw AutomationError::Runtime(errInvalidProcedureCall);
    }
    return WrapUnderRoot(root_name, SelectRootWrappers(copy, root_name));
  });
}

}  // namespace varnex
