// The generated documents that the benchmarks measure: N components in three levels (site,
// collection, members), ten properties each, a persistent attachment per site, and optionally a
// few domains with links and some modified members.
#pragma once

#include <string>

#include "varnex/transport.hpp"

namespace varnex::bench {

// The prefix followed by the number (built by appending: "text" + std::string trips a false
// warning of g++ 12).
inline std::string Numbered(const char* prefix, int number) {
  std::string text = prefix;
  text += std::to_string(number);
  return text;
}

struct SampleShape {
  bool domains = false;                // four domains of 25 items, ten links
  enComponentStatus site_status = csNormal;
  Long modify_every = 0;               // every n-th member gets a modified property (0: none)
};

inline void BuildSample(Transport& transport, Long components, const SampleShape& shape) {
  if (shape.domains) {
    for (int d = 0; d < 4; ++d) {
      const Long domain = transport.AddDomain(Numbered("DOMAIN", d), "C", "Description");
      for (int i = 0; i < 25; ++i) {
        const Long item = transport.AddDomainItem(domain);
        transport.AddDomainProperty(domain, item, "CODE", std::to_string(i));
        transport.AddDomainProperty(domain, item, "DESC", Numbered("item ", i));
      }
    }
  }
  const auto add_properties = [&](Long handle) {
    for (int p = 0; p < 10; ++p) transport.AddCompProperty(handle, Numbered("P", p), Numbered("value ", p));
  };
  for (Long made = 0; made < components;) {
    const Long site = transport.AddComponent(0, "Site", shape.site_status);
    add_properties(site);
    transport.AddCompAttachment(site, "<NOTE><TEXT>remark</TEXT></NOTE>", vbTrue);
    const Long members = transport.AddCollection(site, "Visits");
    made += 2;
    for (int v = 0; v < 8 && made < components; ++v, ++made) {
      const Long member = transport.AddComponent(members, "Visit");
      add_properties(member);
      if (shape.modify_every > 0 && made % shape.modify_every == 0) transport.ModifyCompProperty(member, 3, "changed");
    }
  }
  if (shape.domains) {
    for (int p = 0; p < 10; ++p) transport.AddPropDomain(Numbered("P", p), "DOMAIN1");
  }
}

}  // namespace varnex::bench
