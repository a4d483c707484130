// The platform's data-binding interfaces as the server implements them: the OLE DB simple
// provider and its listener, and the data source that hands a provider to a bound control.
// mingw declares their identifiers (and that of the data source's listener) but no library
// defines them; data_binding_interfaces.cpp does, once.
#pragma once

#include <windows.h>
#include <oaidl.h>
#include <simpdata.h>
#include <msdatsrc.h>
