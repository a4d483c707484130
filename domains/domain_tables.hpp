// The domain side of a Transport: the indexes of domains, items, item properties and
// property-domain links, emptied when the document is reset.
#pragma once

#include <variant>

#include <pugixml.hpp>

#include "runtime/keyed_map.hpp"
#include "varnex/types.hpp"

namespace varnex {

struct DomainTables {
  // What a domain-index key holds: nothing yet (a key left behind by a read), an element, or a
  // number.
  using Entry = std::variant<std::monostate, pugi::xml_node, Long>;

  KeyedMap<Entry> domain_index{KeyCompare::Text};
  KeyedMap<Long> domain_counts{KeyCompare::Text};
  KeyedMap<Entry> prop_domain_index{KeyCompare::Text};
  Long domain_counter = 0;
  Long prop_domain_count = 0;

  void Reset() {
    domain_index.RemoveAll();
    domain_counts.RemoveAll();
    prop_domain_index.RemoveAll();
    domain_counts.Set("0", 0);
    domain_counter = 0;
    prop_domain_count = 0;
  }
};

}  // namespace varnex
