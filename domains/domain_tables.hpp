// The domain side of a Transport: the indexes of domains, items, item properties and
// property-domain links, emptied when the document is reset.
//
// The domain index keeps five kinds of entry in one case-insensitive key space: "3" (domain
// element), "COLOUR" (domain handle), "3,2" (item element), "3,2,1" (item property element) and
// "3,2,SHADE" (item property number). Like every index of the object, reading a missing key
// leaves it behind with an empty entry, so a name looked up once later counts as taken.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include <pugixml.hpp>

#include "runtime/keyed_map.hpp"
#include "runtime/text.hpp"
#include "varnex/automation_error.hpp"
#include "varnex/types.hpp"

namespace varnex {

struct DomainTables {
  // What a key holds: nothing yet (a key left behind by a read), an element, or a number.
  using Entry = std::variant<std::monostate, pugi::xml_node, Long>;

  KeyedMap<Entry> domain_index{KeyCompare::Text};
  // "0": number of domains; "3": items of domain 3; "3,2": properties of item 2 of domain 3.
  KeyedMap<Long> domain_counts{KeyCompare::Text};
  // "7": link element; "COLOUR_PROP": link handle.
  KeyedMap<Entry> prop_domain_index{KeyCompare::Text};
  Long domain_counter = 0;  // last domain handle given out
  Long prop_domain_count = 0;

  // Empties the tables as releasing the document does; the link count survives until Reset, so
  // that a reset stopped before it (a root name that is not a valid name) leaves it as it was.
  void Release() {
    domain_index.RemoveAll();
    domain_counts.RemoveAll();
    prop_domain_index.RemoveAll();
    domain_counter = 0;
  }

  // The tables of an empty document.
  void Reset() {
    Release();
    domain_counts.Set("0", 0);
    prop_domain_count = 0;
  }

  // The entry as an element; a key that holds none is error 424 (object required).
  static pugi::xml_node ElementOf(const Entry& entry) {
    const pugi::xml_node* element = std::get_if<pugi::xml_node>(&entry);
    if (!element || !*element) throw AutomationError::Runtime(errObjectRequired);
    return *element;
  }

  // The entry as a number: empty reads as 0; an element cannot be read as one (13).
  static Long NumberOf(const Entry& entry) {
    if (const Long* number = std::get_if<Long>(&entry)) return *number;
    if (std::holds_alternative<pugi::xml_node>(entry)) throw AutomationError::Runtime(errTypeMismatch);
    return 0;
  }

  // Index keys: numbers in plain decimal joined by commas.
  static std::string Key(Long domain) { return FormatLong(domain); }
  static std::string Key(Long domain, Long item) { return FormatLong(domain) + ',' + FormatLong(item); }
  static std::string Key(Long domain, Long item, Long property) {
    return Key(domain, item) + ',' + FormatLong(property);
  }
  static std::string Key(Long domain, Long item, std::string_view upper_name) {
    std::string key = Key(domain, item);
    key += ',';
    key += upper_name;
    return key;
  }
  static std::string LinkKey(std::string_view property) { return UCase(property) + "_PROP"; }
};

}  // namespace varnex
