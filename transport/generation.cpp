// Giving the document out as text: whole, reduced to its changes, or without the domain sections.
//
// The reduced forms are those of a working copy: the document's text loaded afresh, trimmed
// (short form only), its top-level wrappers written under bare root tags. Loading that text gives
// back the visible tree node for node, except where the loading rules change it: blank-only text
// outside xml:space="preserve" is dropped, adjacent text nodes are joined, CR line ends become LF
// (not in processing instructions), and an attached declaration keeps the text from loading at
// all (attribute and element names are checked when set, so nothing else can). So the text is
// written straight from the own document, leaving out what the reduction would remove, with its
// line ends normalised; the copy is really made only where that could differ, and on any
// failure, which the copy then raises as it should.
#include <cstring>

#include "runtime/trap.hpp"
#include "runtime/xml.hpp"
#include "transport/answer_size.hpp"
#include "transport/root_wrappers.hpp"
#include "transport/transport_impl.hpp"
#include "transport/trim_marks.hpp"

namespace varnex {
namespace {

// Turns text written from the own document into the text written from its reload: CR line ends
// become LF. False when the text alone cannot tell: blank-only text between two tags (dropped by
// a reload unless xml:space="preserve" holds), an attached declaration, or a CR that a processing
// instruction may hold.
bool AsReloaded(std::string& text) {
  if (xml::MayHoldWhiteSpaceText(text) || xml::MayHoldDeclaration(text)) return false;
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
  const auto changed = [&](pugi::xml_node node) { return marks.changed.Contains(node.internal_object()); };
  const auto kept_from = [&](pugi::xml_node node) {
    while (node && marks.removed.Contains(node.internal_object())) node = node.next_sibling();
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

// `may_nest` unless the wrappers are known to stand apart: the own root's children, while no
// other element is named like the root.
std::string WrapUnderRoot(const std::string& root_name, const std::vector<pugi::xml_node>& wrappers, bool may_nest) {
  const WrapperTextCheck check(wrappers, nullptr, may_nest);
  std::string text = OpenRoot(root_name);
  for (const pugi::xml_node wrapper : wrappers) xml::SerializeTo(wrapper, text);
  CloseRoot(root_name, text);
  check.Written(text.size());
  return text;
}

// The short form written from the own document; false where only the working copy can tell.
bool WriteShortForm(Transport::Impl& impl, std::string& text) {
  try {
    TrimMarks marks;
    if (!impl.MarkTrim(SelectFirstNamed(impl.root, impl.root_name), marks)) return false;
    const auto removed = [&](pugi::xml_node node) {
      for (; node && node != impl.root; node = node.parent()) {
        if (marks.removed.Contains(node.internal_object())) return true;
      }
      return false;
    };
    const std::vector<pugi::xml_node> wrappers = impl.OwnRootWrappers();
    const WrapperTextCheck check(wrappers, &marks.removed, impl.upkeep.OddSections());
    TagWriter tags;
    text = OpenRoot(impl.root_name);
    for (const pugi::xml_node wrapper : wrappers) {
      if (!removed(wrapper)) WriteKept(wrapper, marks, tags, text);
    }
    CloseRoot(impl.root_name, text);
    check.Written(text.size());
    return AsReloaded(text);
  } catch (const AutomationError& error) {
    if (error.number() == errOutOfMemory) throw;  // the working copy would need as much
    return false;
  }
}

// The medium form written from the own document; false where only the working copy can tell.
bool WriteMediumForm(Transport::Impl& impl, std::string& text) {
  try {
    // Attachments of the root are not written, but an attached declaration there would keep the
    // document from loading.
    for (pugi::xml_node list = impl.root.first_child(); list; list = list.next_sibling()) {
      if (!xml::ElementNamed(list, "ATTACHMENTS")) continue;
      for (pugi::xml_node attachment : list.children()) {
        if (ReadsAsDeclaration(attachment)) return false;
      }
      break;
    }
    text = WrapUnderRoot(impl.root_name, impl.OwnRootWrappers(), impl.upkeep.OddSections());
    return AsReloaded(text);
  } catch (const AutomationError&) {
    return false;
  }
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
    std::string text;
    if (root && WriteShortForm(*this, text)) return text;
    // The working copy itself; when the text does not load it stays empty, and the trim fails.
    pugi::xml_document copy;
    xml::LoadText(copy, Document().Serialize());
    pugi::xml_node copy_root = SelectFirstNamed(copy, root_name);
    Boolean kill = vbFalse;
    self().TrimDocument(copy, copy_root, kill);
    return WrapUnderRoot(root_name, SelectRootWrappers(copy, root_name), true);
  });
}

std::string Transport::Impl::GetModifiedXML2() {
  return Trap{"GetModifiedXML2"}.Run([&] {
    std::string text;
    if (root && WriteMediumForm(*this, text)) return text;
    pugi::xml_document copy;
    if (!xml::LoadText(copy, Document().Serialize())) {
      // The bad-format failure is raised with error number 0, which the runtime refuses with its
      // own invalid-argument error.
      throw AutomationError::Runtime(errInvalidProcedureCall);
    }
    return WrapUnderRoot(root_name, SelectRootWrappers(copy, root_name), true);
  });
}

}  // namespace varnex
