// Updating property values from a document that went out and came back.
//
// Components and properties are paired by position alone, every child node counting on both
// sides; only property texts are copied. The walk keeps its levels on an explicit stack.
#include <vector>

#include "runtime/memory_budget.hpp"
#include "runtime/text.hpp"
#include "runtime/nested_trap.hpp"
#include "runtime/xml.hpp"
#include "transport/answer_size.hpp"
#include "transport/root_wrappers.hpp"
#include "transport/transport_impl.hpp"
#include "transport/wrapper_names.hpp"

namespace varnex {

Long Transport::UpdateDocument(const std::string& strDoc) {
  return Trap{"UpdateDocument"}.Run([&] {
    RefuseNul(strDoc);
    pugi::xml_document returned;
    xml::LoadText(returned, strDoc);  // text that does not parse selects nothing
    Impl& impl = *impl_;
    const std::vector<pugi::xml_node> incoming = SelectRootWrappers(returned, impl.root_name);
    impl.RootNode();  // a document without a root fails here
    if (incoming.empty()) return Long{1};
    budget::Require(WrappersTaken(incoming), kPairedLevelCost);
    const std::vector<pugi::xml_node> own = impl.OwnRootWrappers();
    for (std::size_t i = 0; i < incoming.size(); ++i) {
      if (i >= own.size()) throw AutomationError::Runtime(errObjectNotSet);
      impl.RecurseCopyProperties(incoming[i].first_child(), own[i].first_child());
    }
    return Long{1};
  });
}

Long Transport::Impl::RecurseCopyProperties(pugi::xml_node incoming, pugi::xml_node own) {
  struct Level {
    pugi::xml_node own;           // the own component node; may be missing
    pugi::xml_node next;          // the incoming child node to pair next
    pugi::xml_node next_own;      // the own child node at the same position; missing past the end
  };
  std::vector<Level> levels;
  std::size_t depth = 1;
  RunNested(Trap{"RecurseCopyProperties"}, depth, [&] {
    const auto enter = [&](pugi::xml_node from, pugi::xml_node to) {
      depth = levels.size() + 1;
      if (!from) throw AutomationError::Runtime(errObjectNotSet);
      if (from.first_child()) levels.push_back({to, from.first_child(), to ? to.first_child() : pugi::xml_node()});
    };
    enter(incoming, own);
    while (!levels.empty()) {
      depth = levels.size();
      Level& level = levels.back();
      const pugi::xml_node child = level.next;
      if (!child) {
        levels.pop_back();
        continue;
      }
      const pugi::xml_node own_component = level.own;
      const pugi::xml_node own_child = level.next_own;
      level.next = child.next_sibling();
      if (level.next_own) level.next_own = level.next_own.next_sibling();

      if (xml::LocalNameIs(child, "PROPERTIES") && child.first_child()) {
        if (!own_component) throw AutomationError::Runtime(errObjectNotSet);
        // A property without an own counterpart is skipped without a word. Setting a text never
        // changes the lists walked here, so both sides advance together.
        pugi::xml_node target = own_child ? own_child.first_child() : pugi::xml_node();
        for (pugi::xml_node property = child.first_child(); property && target; property = property.next_sibling()) {
          document->SetText(target, xml::Text(property));
          target = target.next_sibling();
        }
      }
      if (IsWrapper(child)) {
        if (!own_component || !own_child) throw AutomationError::Runtime(errObjectNotSet);
        enter(child.first_child(), own_child.first_child());
      }
    }
  });
  return 1;
}

}  // namespace varnex
