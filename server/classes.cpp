#include "classes.hpp"

#include "class_factory.hpp"
#include "varnex.h"

namespace varnex::server {

std::span<const ClassEntry> Classes() {
  static const ClassEntry classes[] = {
      {&CLSID_Transport, L"Varnex.Transport", L"Varnex Transport",
       &ClassFactory<CreateTransportObject>::GetClassObject},
      {&CLSID_IDataCollection, L"Varnex.IDataCollection", L"Varnex IDataCollection",
       &ClassFactory<CreateIDataCollectionObject>::GetClassObject},
      {&CLSID_DataCollection, L"Varnex.DataCollection", L"Varnex DataCollection",
       &ClassFactory<CreateDataCollectionObject>::GetClassObject},
      {&CLSID_DataCollectionProvider, L"Varnex.DataCollectionProvider", L"Varnex DataCollectionProvider",
       &ClassFactory<CreateProviderObject>::GetClassObject},
      {&CLSID_DataCollectionSource, L"Varnex.DataCollectionSource", L"Varnex DataCollectionSource",
       &ClassFactory<CreateSourceObject>::GetClassObject},
  };
  return classes;
}

}  // namespace varnex::server
