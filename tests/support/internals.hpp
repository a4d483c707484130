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

inline Transport::Impl& Internals(Transport& transport) { return TransportInternals::Of(transport); }

}  // namespace testing
}  // namespace varnex
