#include "cli/document_checks.hpp"

#include <algorithm>
#include <functional>
#include <unordered_set>
#include <vector>

#include <fmt/format.h>

#include "cli/component_path.hpp"
#include "cli/upper_name.hpp"

namespace varnex::cli {
namespace {

std::string Trimmed(std::string_view text) {
  const std::size_t start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return {};
  return std::string(text.substr(start, text.find_last_not_of(' ') - start + 1));
}

bool Named(pugi::xml_node node, std::string_view name) {
  return node.type() == pugi::node_element && UpperName(node.name()) == name;
}

bool IsWrapper(pugi::xml_node node) { return Named(node, "COMPONENT") || Named(node, "COLLECTION"); }

bool IsDeleted(pugi::xml_node element) { return UpperName(Trimmed(element.attribute("STATUS").value())) == "DELETED"; }

class Checker {
 public:
  explicit Checker(const std::function<void(const Finding&)>& report) : report_(report) {}

  void Document(const pugi::xml_document& document) {
    const pugi::xml_node first = document.first_child();
    if (first && first.type() != pugi::node_element) {
      Warning(first, "", "the text starts with a declaration, comment or processing instruction: the library takes "
              "the first node's name as the root name (the tool leaves these out)");
    }
    const pugi::xml_node root = document.document_element();
    if (root.first_attribute()) Warning(root, "", fmt::format("the root <{}> carries attributes: they are not kept", root.name()));
    std::vector<pugi::xml_node> wrappers;
    for (const pugi::xml_node child : root.children()) {
      if (child.type() == pugi::node_element) {
        const std::string name = child.name();
        if (name == "COMPONENT" || name == "COLLECTION") {
          wrappers.push_back(child);
        } else if (name == "DOMAIN") {
          Domains(child);
        } else if (name == "PROPERTY_DOMAINS") {
          links_ = child;
        } else {
          Error(child, "", fmt::format("<{}> under the root is not read", name));
        }
      } else if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
        Error(child, "", "text under the root is not read");
      }
    }
    Links();
    Components(wrappers);
  }

 private:
  struct Pending {
    pugi::xml_node element;  // a name element
    std::string path;
  };

  // Walks the components below the given top-level wrappers, depth first, without recursion.
  void Components(const std::vector<pugi::xml_node>& top) {
    std::vector<Pending> stack;
    Push(top, "", stack);
    while (!stack.empty()) {
      const Pending pending = std::move(stack.back());
      stack.pop_back();
      std::vector<pugi::xml_node> wrappers;
      NameElement(pending.element, pending.path, wrappers);
      Push(wrappers, pending.path, stack);
    }
  }

  // Checks the wrappers and puts their name elements on the stack, first one on top. Siblings
  // are named as the library lists them: live components first, then deleted ones.
  void Push(const std::vector<pugi::xml_node>& wrappers, const std::string& parent_path, std::vector<Pending>& stack) {
    std::vector<pugi::xml_node> elements;
    std::vector<pugi::xml_node> deleted;
    for (const pugi::xml_node wrapper : wrappers) {
      const pugi::xml_node element = Wrapper(wrapper, parent_path);
      if (element) (IsDeleted(element) ? deleted : elements).push_back(element);
    }
    elements.insert(elements.end(), deleted.begin(), deleted.end());
    std::vector<std::string> names;
    for (const pugi::xml_node element : elements) names.push_back(UpperName(element.name()));
    const std::vector<std::string> steps = StepsFor(names);
    for (std::size_t i = elements.size(); i-- > 0;) stack.push_back({elements[i], parent_path + "/" + steps[i]});
  }

  // The wrapper's name element, or nothing when the library could not read one.
  pugi::xml_node Wrapper(pugi::xml_node wrapper, const std::string& parent_path) {
    const std::string where = parent_path.empty() ? "/" : parent_path;
    if (wrapper.first_attribute()) Error(wrapper, where, fmt::format("<{}> carries attributes: they are not read", wrapper.name()));
    const pugi::xml_node first = wrapper.first_child();
    if (!first) {
      Error(wrapper, where, fmt::format("<{}> without a name element", wrapper.name()));
      return {};
    }
    if (first.type() != pugi::node_element) {
      Error(first, where, fmt::format("<{}> starts with something other than its name element: the component "
                                      "behind it cannot be indexed", wrapper.name()));
      return {};
    }
    int elements = 0;
    for (const pugi::xml_node child : wrapper.children()) elements += child.type() == pugi::node_element ? 1 : 0;
    if (elements > 1) {
      Error(wrapper, where, fmt::format("<{}> holds {} elements: only the first, <{}>, is read", wrapper.name(),
                                        elements, first.name()));
    }
    return first;
  }

  void NameElement(pugi::xml_node element, const std::string& path, std::vector<pugi::xml_node>& wrappers) {
    Status(element, path, "");
    for (const pugi::xml_node child : element.children()) {
      if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata) {
        Error(child, path, "text inside a component is not read");
      } else if (IsWrapper(child)) {
        wrappers.push_back(child);
      } else if (Named(child, "PROPERTIES")) {
        Properties(child, path);
      } else if (child.type() == pugi::node_element && !Named(child, "ATTACHMENTS") && !Named(child, "PROTOTYPE")) {
        Error(child, path, fmt::format("<{}> inside a component is not read", child.name()));
      }
    }
  }

  void Properties(pugi::xml_node list, const std::string& path) {
    for (const pugi::xml_node property : list.children()) {
      if (property.type() != pugi::node_element) {
        if (property.type() == pugi::node_pcdata || property.type() == pugi::node_cdata) {
          Error(property, path, "text in a property list is not a property");
        }
        continue;
      }
      Status(property, path, fmt::format("property {}: ", property.name()));
      for (const pugi::xml_node inner : property.children()) {
        if (inner.type() == pugi::node_element) {
          Error(inner, path, fmt::format("property {} holds elements: only their text is kept", property.name()));
          break;
        }
      }
    }
  }

  void Status(pugi::xml_node element, const std::string& path, const std::string& subject) {
    const pugi::xml_attribute status = element.attribute("STATUS");
    if (!status) return;
    const std::string text = UpperName(Trimmed(status.value()));
    if (text.empty() || text == "NEW" || text == "MODIFIED" || text == "DELETED") return;
    Error(element, path, fmt::format("{}unknown status \"{}\" (read as normal)", subject, status.value()));
  }

  void Domains(pugi::xml_node section) {
    for (const pugi::xml_node domain : section.children()) {
      if (domain.type() != pugi::node_element) continue;
      if (!domains_.insert(UpperName(domain.name())).second) {
        Warning(domain, "", fmt::format("domain {} appears again: the items of the second are not taken over",
                                        domain.name()));
      }
    }
  }

  void Links() {
    std::unordered_set<std::string> seen;
    for (const pugi::xml_node link : links_.children()) {
      if (link.type() != pugi::node_element) continue;
      if (!seen.insert(UpperName(link.name())).second) {
        Warning(link, "", fmt::format("a second link for property {}: it is not taken over", link.name()));
      }
      const std::string domain = link.text().get();
      if (domains_.count(UpperName(domain)) == 0) {
        Warning(link, "", fmt::format("property {} is linked to domain {}, which does not exist", link.name(), domain));
      }
    }
  }

  void Error(pugi::xml_node node, const std::string& path, const std::string& what) {
    report_({true, OffsetOf(node), path, what});
  }
  void Warning(pugi::xml_node node, const std::string& path, const std::string& what) {
    report_({false, OffsetOf(node), path, what});
  }
  // Where the node starts: the "<" of an element (the parser notes where its name starts).
  static std::ptrdiff_t OffsetOf(pugi::xml_node node) {
    const std::ptrdiff_t offset = node.offset_debug();
    return node.type() == pugi::node_element && offset > 0 ? offset - 1 : offset;
  }

  const std::function<void(const Finding&)>& report_;
  std::unordered_set<std::string> domains_;
  pugi::xml_node links_;
};

}  // namespace

std::vector<Finding> CheckDocument(const pugi::xml_document& document) {
  std::vector<Finding> findings;
  const std::function<void(const Finding&)> collect = [&](const Finding& finding) { findings.push_back(finding); };
  Checker(collect).Document(document);
  std::stable_sort(findings.begin(), findings.end(),
                   [](const Finding& a, const Finding& b) { return a.offset < b.offset; });
  return findings;
}

}  // namespace varnex::cli
