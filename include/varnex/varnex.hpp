// Varnex: hold, edit and exchange hierarchical transport documents.
//
// Everything but the trim operations, whose pugixml types come with <varnex/trim.hpp>.
#pragma once

#include "varnex/automation_error.hpp"
#include "varnex/collection.hpp"
#include "varnex/data_collection.hpp"
#include "varnex/data_collection_provider.hpp"
#include "varnex/data_collection_source.hpp"
#include "varnex/dictionary.hpp"
#include "varnex/enumerator.hpp"
#include "varnex/late_bound.hpp"
#include "varnex/memory_budget.hpp"
#include "varnex/object.hpp"
#include "varnex/oledb_simple_provider.hpp"
#include "varnex/transport.hpp"
#include "varnex/types.hpp"
#include "varnex/variant.hpp"
