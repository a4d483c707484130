// Wrappers of the core objects that the server hands out (each a new reference). Call them
// through WrapObject, which keeps one wrapper per core object.
#pragma once

#include <memory>

#include <windows.h>
#include <oaidl.h>

#include <varnex/varnex.hpp>

namespace varnex::server {

IDispatch* NewRowObject(std::shared_ptr<Collection> row);
IDispatch* NewDataCollectionObject(std::shared_ptr<IDataCollection> collection);
IDispatch* NewProviderObject(std::shared_ptr<DataCollectionProvider> provider);
IDispatch* NewSourceObject(std::shared_ptr<DataCollectionSource> source);
// An enumerator for For Each (a fresh one per request).
IUnknown* NewEnumVariant(std::shared_ptr<Enumerator> enumerator);

}  // namespace varnex::server
