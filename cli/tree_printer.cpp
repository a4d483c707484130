#include "cli/tree_printer.hpp"

#include <cctype>
#include <sstream>
#include <string>

#include <pugixml.hpp>

#include "cli/component_walk.hpp"

namespace varnex::cli {
namespace {

const char* StatusWord(enComponentStatus status) {
  switch (status) {
    case csModified: return " [modified]";
    case csNew: return " [new]";
    case csDeleted: return " [deleted]";
    default: return "";
  }
}

// ANSI colours: new green, modified yellow, deleted red.
const char* StatusColor(enComponentStatus status) {
  switch (status) {
    case csModified: return "\x1b[33m";
    case csNew: return "\x1b[32m";
    case csDeleted: return "\x1b[31m";
    default: return "";
  }
}
constexpr const char* kColorEnd = "\x1b[0m";

void WriteStatus(enComponentStatus status, const TreeStyle& style, std::ostream& out) {
  const char* word = StatusWord(status);
  if (*word == '\0') return;
  if (style.color) {
    out << ' ' << StatusColor(status) << (word + 1) << kColorEnd;
  } else {
    out << word;
  }
}

void PrintProperties(Transport& transport, Long handle, const std::string& indent, const TreeStyle& style,
                     std::ostream& out) {
  for (const PropertyInfo& property : transport.Properties(handle)) {
    out << indent << "    " << property.name << " = \"" << property.value << "\"";
    WriteStatus(property.status, style, out);
    if (!property.original.empty()) out << " (was \"" << property.original << "\")";
    out << "\n";
  }
}

// Attributes and attachments, read from the component's own XML (the library names no
// attributes or attachments of a component; it only answers for a given name).
void PrintAttributesAndAttachments(Transport& transport, Long handle, const std::string& indent, std::ostream& out) {
  pugi::xml_document copy;
  if (!copy.load_string(transport.GetComponentXML(handle).c_str())) return;
  pugi::xml_node element;
  for (pugi::xml_node wrapper = copy.document_element().first_child(); wrapper; wrapper = wrapper.next_sibling()) {
    const std::string name = wrapper.name();
    if (name == "COMPONENT" || name == "COLLECTION") element = wrapper.first_child();
  }
  for (const pugi::xml_attribute attribute : element.attributes()) {
    if (std::string(attribute.name()) == "STATUS") continue;
    out << indent << "    @" << attribute.name() << " = \"" << attribute.value() << "\"\n";
  }
  for (const pugi::xml_node attachment : element.child("ATTACHMENTS").children()) {
    std::string persist = attachment.attribute("persist").value();
    for (char& c : persist) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    pugi::xml_document single;
    single.append_copy(attachment);
    std::ostringstream text;
    single.save(text, "", pugi::format_raw | pugi::format_no_declaration);
    out << indent << "    attachment" << (persist == "true" ? " (persistent)" : "")
        << ": " << text.str() << "\n";
  }
}

void PrintPrototype(Transport& transport, Long handle, const std::string& indent, std::ostream& out) {
  Dictionary prototype = transport.GetCompPrototypeProperties(handle);
  for (const std::string& name : prototype.Keys()) {
    out << indent << "    prototype " << name << " = \"" << prototype.Item(name).AsString() << "\"\n";
  }
}

void PrintDomainsAndLinks(Transport& transport, std::ostream& out) {
  const Long domains = transport.CountDomains();
  for (Long d = 1; d <= domains; ++d) {
    std::string code, description;
    const std::string name = transport.GetDomain(d, code, description);
    out << "domain " << name;
    if (!code.empty() || !description.empty()) out << " (" << code << (code.empty() ? "" : ": ") << description << ")";
    out << "\n";
    const Long items = transport.CountDomItems(d);
    for (Long i = 1; i <= items; ++i) {
      out << "  item " << i << ":";
      const Long properties = transport.CountDomItemProperties(d, i);
      for (Long p = 1; p <= properties; ++p) {
        std::string value;
        const std::string property = transport.GetDomItemProperty(d, i, p, value);
        out << (p > 1 ? ", " : " ") << property << " = \"" << value << "\"";
      }
      out << "\n";
    }
  }
  // Links are numbered from the components' counter, so they are read from the document itself.
  pugi::xml_document whole;
  if (transport.CountPropDomains() == 0 || !whole.load_string(transport.TransportDoc().c_str())) return;
  for (const pugi::xml_node link : whole.document_element().child("PROPERTY_DOMAINS").children()) {
    out << "link " << link.name() << " -> " << link.text().get() << "\n";
  }
}

}  // namespace

void PrintTree(Transport& transport, Long parent, std::ostream& out, const TreeStyle& style) {
  if (style.all && parent == 0) PrintDomainsAndLinks(transport, out);
  WalkComponents(transport, parent, [&](const Child& child, const std::string&, int depth) {
    const std::string indent(static_cast<std::size_t>(depth - 1) * 2, ' ');
    out << indent << (child.type == ctcollection ? "collection " : "component ") << child.name << " #"
        << child.handle;
    WriteStatus(child.status, style, out);
    out << "\n";
    PrintProperties(transport, child.handle, indent, style, out);
    if (style.all && child.handle != 0) {
      PrintAttributesAndAttachments(transport, child.handle, indent, out);
      PrintPrototype(transport, child.handle, indent, out);
    }
  });
}

}  // namespace varnex::cli
