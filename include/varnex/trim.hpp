// The trim operations of Transport, for callers that reduce a pugixml document themselves.
//
// Transport::TrimDocument and Transport::TrimDocument2 take a pugixml document and node; this
// header brings in pugixml so that a caller of them compiles. See transport.hpp for what they do.
#pragma once

#include <pugixml.hpp>

#include "varnex/transport.hpp"
