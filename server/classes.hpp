// The creatable classes of the server: identifier, ProgID, and how an instance is made.
#pragma once

#include <span>

#include <windows.h>

namespace varnex::server {

struct ClassEntry {
  const CLSID* clsid;
  const wchar_t* prog_id;
  const wchar_t* description;
  // Hands out the class object (an IClassFactory) asked for by iid.
  HRESULT (*get_class_object)(REFIID iid, void** object);
};

std::span<const ClassEntry> Classes();

// Creation of each class, in the files of the classes.
HRESULT CreateTransportObject(REFIID iid, void** object);
HRESULT CreateIDataCollectionObject(REFIID iid, void** object);
HRESULT CreateDataCollectionObject(REFIID iid, void** object);
HRESULT CreateProviderObject(REFIID iid, void** object);
HRESULT CreateSourceObject(REFIID iid, void** object);

}  // namespace varnex::server
