// The generated documents that the benchmarks measure, deterministic for N and a seed: N
// components in three levels (site, collection, members), ten properties each, an attribute on
// each component, a persistent attachment per site, a prototype on each collection, four domains
// of 25 items with ten links, some sites new, some members modified (a "MODIFIED" property with
// its "ORIGINAL" value) and some deleted.
#pragma once

#include <map>
#include <random>
#include <string>

#include "varnex/transport.hpp"

namespace varnex::bench {

// The prefix followed by the number (built by appending: "text" + std::string trips a false
// warning of g++ 12).
inline std::string Numbered(const char* prefix, long number) {
  std::string text = prefix;
  text += std::to_string(number);
  return text;
}

struct SampleShape {
  bool domains = true;      // four domains of 25 items, ten links
  bool marks = true;        // new sites, modified and deleted members, attributes, prototypes
  unsigned seed = 1;
};

inline void BuildSample(Transport& transport, Long components, const SampleShape& shape = {}) {
  std::mt19937 random(shape.seed);
  const auto one_in = [&](int n) { return std::uniform_int_distribution<int>(0, n - 1)(random) == 0; };
  if (shape.domains) {
    for (int d = 0; d < 4; ++d) {
      const Long domain = transport.AddDomain(Numbered("DOMAIN", d), "C", "Description");
      for (int i = 0; i < 25; ++i) {
        const Long item = transport.AddDomainItem(domain);
        transport.AddDomainProperty(domain, item, "CODE", std::to_string(i));
        transport.AddDomainProperty(domain, item, "DESC", Numbered("item ", i));
      }
    }
    for (int p = 0; p < 10; ++p) transport.AddPropDomain(Numbered("P", p), "DOMAIN1");
  }
  const auto add_properties = [&](Long handle, bool modified) {
    for (int p = 0; p < 10; ++p) {
      if (modified && p == 3) {
        transport.AddCompProperty(handle, Numbered("P", p), "changed", csModified, Numbered("value ", p));
      } else {
        transport.AddCompProperty(handle, Numbered("P", p), Numbered("value ", p));
      }
    }
  };
  for (Long made = 0; made < components;) {
    const bool new_site = shape.marks && one_in(10);
    const Long site = transport.AddComponent(0, "Site", new_site ? csNew : csNormal);
    if (shape.marks) transport.AddCompAttribute(site, "ID", Numbered("S", made));
    transport.AddCompAttachment(site, "<NOTE persist=\"true\"><TEXT>remark</TEXT></NOTE>", vbTrue);
    add_properties(site, false);
    const Long members = transport.AddCollection(site, "Visits");
    if (shape.marks) transport.AddCompPrototypeProperty(members, "P1", "default");
    made += 2;
    for (int v = 0; v < 8 && made < components; ++v, ++made) {
      const enComponentStatus status =
          !shape.marks || new_site ? csNormal : one_in(20) ? csModified : one_in(50) ? csDeleted : csNormal;
      const Long member = transport.AddComponent(members, "Visit", status);
      if (shape.marks) transport.AddCompAttribute(member, "ID", Numbered("V", made));
      add_properties(member, status == csModified);
    }
  }
}

// The text of the sample of N components, made once per process.
inline const std::string& SampleText(Long components) {
  static std::map<Long, std::string> texts;
  auto found = texts.find(components);
  if (found == texts.end()) {
    Transport transport;
    BuildSample(transport, components);
    found = texts.emplace(components, transport.TransportDoc()).first;
  }
  return found->second;
}

}  // namespace varnex::bench
