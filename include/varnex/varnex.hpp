// Varnex: hold, edit and exchange hierarchical transport documents.
#pragma once

#include "varnex/automation_error.hpp"
#include "varnex/collection.hpp"
#include "varnex/dictionary.hpp"
#include "varnex/object.hpp"
#include "varnex/transport.hpp"
#include "varnex/types.hpp"
#include "varnex/variant.hpp"
