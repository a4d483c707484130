// The inside of a Transport, for tests that arrange a document the public operations cannot make
// (a hand-written node, a wrapper out of form) or check the indexes themselves.
#pragma once

#include "transport/transport_impl.hpp"
#include "varnex/transport.hpp"

namespace varnex {

struct TransportInternals {
  static Transport::Impl& Of(Transport& transport) { return *transport.impl_; }
};

namespace testing {

// For changing the document by hand: what a test changes there is not reported to the indexes,
// so their next rebuilds are full ones, read from the document as it then is.
inline Transport::Impl& Internals(Transport& transport) {
  Transport::Impl& impl = TransportInternals::Of(transport);
  impl.upkeep.Unknown();
  return impl;
}

// For looking at the indexes without disturbing how they are kept.
inline Transport::Impl& Indexes(Transport& transport) { return TransportInternals::Of(transport); }

}  // namespace testing
}  // namespace varnex
