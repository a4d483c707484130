// Varnex.Transport: the automation face of varnex::Transport.
#include <varnex/varnex.hpp>

#include "classes.hpp"
#include "com_object.hpp"
#include "msxml_dom.hpp"
#include "parameters.hpp"
#include "script_dictionary.hpp"
#include "varnex.h"
#include "variants.hpp"

namespace varnex::server {
namespace {

using StatusRef = InOut<::enComponentStatus, enComponentStatus>;
using TypeRef = InOut<::enComponentType, enComponentType>;

// Reduces the caller's own DOM tree below nNode in place, as the core reduces its documents;
// docShort is carried along unused. boolKill says whether nNode itself may go.
void TrimCallersTree(IDispatch** nNode, VARIANT_BOOL* boolKill, bool mild) {
  RequirePointer(nNode);
  RequirePointer(boolKill);
  MsxmlDom dom;
  Boolean kill = vbFalse;
  trim::TrimWalk(dom, DomNodeOf(*nNode), kill, mild, MsxmlRemoving{});
  *boolKill = kill;
}

class TransportObject final : public ComObject<_Transport> {
 public:
  HRESULT STDMETHODCALLTYPE get_TransportDoc(BSTR* result) override {
    return Call([&] { PutResult(result, transport_.TransportDoc()); });
  }
  HRESULT STDMETHODCALLTYPE put_TransportDoc(BSTR strDoc) override {
    return Call([&] { transport_.TransportDoc(ToUtf8(strDoc)); });
  }
  HRESULT STDMETHODCALLTYPE get_RootName(BSTR* result) override {
    return Call([&] { PutResult(result, transport_.RootName()); });
  }
  HRESULT STDMETHODCALLTYPE put_RootName(BSTR strName) override {
    return Call([&] { transport_.RootName(ToUtf8(strName)); });
  }

  HRESULT STDMETHODCALLTYPE AddComponent(LONG lngParent, BSTR strName, ::enComponentStatus csStatus,
                                         VARIANT* result) override {
    return Call([&] {
      RequirePointer(result);
      ToVariant(Variant(transport_.AddComponent(lngParent, ToUtf8(strName), enComponentStatus(LongOf(csStatus)))), result);
    });
  }
  HRESULT STDMETHODCALLTYPE AddCollection(LONG lngParent, BSTR strCollectionName, LONG* result) override {
    return Call([&] { PutResult(result, transport_.AddCollection(lngParent, ToUtf8(strCollectionName))); });
  }
  HRESULT STDMETHODCALLTYPE GetComponent(LONG lngHandle, BSTR* strName, ::enComponentStatus* csStatus,
                                         ::enComponentType* ctType, LONG* result) override {
    return Call([&] {
      StringRef name(strName);
      StatusRef status(csStatus);
      TypeRef type(ctType);
      PutResult(result, transport_.GetComponent(lngHandle, name, status, type));
    });
  }
  HRESULT STDMETHODCALLTYPE GetCompChild(LONG lngParent, LONG lngChild, BSTR* strName, ::enComponentStatus* csStatus,
                                         ::enComponentType* ctType, VARIANT_BOOL* boolIgnoreDeletes,
                                         LONG* result) override {
    return Call([&] {
      StringRef name(strName);
      StatusRef status(csStatus);
      TypeRef type(ctType);
      BooleanRef ignore_deletes(boolIgnoreDeletes);
      PutResult(result, transport_.GetCompChild(lngParent, lngChild, name, status, type, ignore_deletes));
    });
  }
  HRESULT STDMETHODCALLTYPE CountCompChildren(LONG lngComp, VARIANT_BOOL* boolIgnoreDeletes, LONG* result) override {
    return Call([&] {
      BooleanRef ignore_deletes(boolIgnoreDeletes);
      PutResult(result, transport_.CountCompChildren(lngComp, ignore_deletes));
    });
  }
  HRESULT STDMETHODCALLTYPE FindChildCompByName(LONG lngParent, BSTR strChildName, LONG* result) override {
    return Call([&] { PutResult(result, transport_.FindChildCompByName(lngParent, ToUtf8(strChildName))); });
  }
  HRESULT STDMETHODCALLTYPE GetComponentXML(LONG lngHandle, BSTR* result) override {
    return Call([&] { PutResult(result, transport_.GetComponentXML(lngHandle)); });
  }
  HRESULT STDMETHODCALLTYPE ChildOfCollection(LONG lngHandle, BSTR* result) override {
    return Call([&] { PutResult(result, transport_.ChildOfCollection(lngHandle)); });
  }
  HRESULT STDMETHODCALLTYPE GetComponentStatus(LONG lngHandle, ::enComponentStatus* result) override {
    return Call([&] { PutResult(result, transport_.GetComponentStatus(lngHandle)); });
  }
  HRESULT STDMETHODCALLTYPE RemoveComponentStatus(LONG lngHandle, VARIANT* result) override {
    return Call([&] {
      RequirePointer(result);
      transport_.RemoveComponentStatus(lngHandle);
      VariantInit(result);
    });
  }

  HRESULT STDMETHODCALLTYPE AddCompProperty(LONG lngComponent, BSTR strPropName, BSTR strPropVal,
                                            ::enComponentStatus enStatus, BSTR strPropOriginal, LONG* result) override {
    return Call([&] {
      PutResult(result, transport_.AddCompProperty(lngComponent, ToUtf8(strPropName), ToUtf8(strPropVal),
                                                   enComponentStatus(LongOf(enStatus)), ToUtf8(strPropOriginal)));
    });
  }
  HRESULT STDMETHODCALLTYPE CountCompProperties(LONG lngParent, LONG* result) override {
    return Call([&] { PutResult(result, transport_.CountCompProperties(lngParent)); });
  }
  HRESULT STDMETHODCALLTYPE FindCompPropertyByName(LONG lngParent, BSTR strProperty, LONG* result) override {
    return Call([&] { PutResult(result, transport_.FindCompPropertyByName(lngParent, ToUtf8(strProperty))); });
  }
  HRESULT STDMETHODCALLTYPE GetCompProperty(LONG lngComp, LONG lngProperty, BSTR* strValue,
                                            ::enComponentStatus* status, BSTR* strOriginal, BSTR* result) override {
    return Call([&] {
      StringRef value(strValue);
      StatusRef property_status(status);
      StringRef original(strOriginal);
      PutResult(result, transport_.GetCompProperty(lngComp, lngProperty, value, property_status, original));
    });
  }
  HRESULT STDMETHODCALLTYPE GetCompPropStatus(LONG lngHandle, LONG lngProperty, ::enComponentStatus* result) override {
    return Call([&] { PutResult(result, transport_.GetCompPropStatus(lngHandle, lngProperty)); });
  }
  HRESULT STDMETHODCALLTYPE ModifyCompProperty(LONG lngHandle, LONG lngProperty, BSTR strValue,
                                               VARIANT_BOOL* result) override {
    return Call([&] { PutResult(result, transport_.ModifyCompProperty(lngHandle, lngProperty, ToUtf8(strValue))); });
  }

  HRESULT STDMETHODCALLTYPE GetCompAttribute(LONG lngHandle, BSTR strAttributeName, BSTR* result) override {
    return Call([&] { PutResult(result, transport_.GetCompAttribute(lngHandle, ToUtf8(strAttributeName))); });
  }
  HRESULT STDMETHODCALLTYPE AddCompAttribute(LONG lngHandle, BSTR strAttributeName, BSTR strAttributeValue,
                                             VARIANT_BOOL* result) override {
    return Call([&] {
      PutResult(result,
                transport_.AddCompAttribute(lngHandle, ToUtf8(strAttributeName), ToUtf8(strAttributeValue)));
    });
  }
  HRESULT STDMETHODCALLTYPE AddCompAttachment(LONG lngHandle, BSTR strXml, VARIANT_BOOL* blnPersist,
                                              VARIANT_BOOL* result) override {
    return Call([&] {
      BooleanRef persist(blnPersist);
      PutResult(result, transport_.AddCompAttachment(lngHandle, ToUtf8(strXml), persist));
    });
  }
  HRESULT STDMETHODCALLTYPE GetCompAttachment(LONG lngHandle, BSTR strName, BSTR* result) override {
    return Call([&] { PutResult(result, transport_.GetCompAttachment(lngHandle, ToUtf8(strName))); });
  }
  HRESULT STDMETHODCALLTYPE AddCompPrototypeProperty(LONG lngHandle, BSTR strPropertyName, BSTR strValue,
                                                     VARIANT_BOOL* result) override {
    return Call([&] {
      PutResult(result, transport_.AddCompPrototypeProperty(lngHandle, ToUtf8(strPropertyName), ToUtf8(strValue)));
    });
  }
  HRESULT STDMETHODCALLTYPE GetCompPrototypeProperties(LONG lngHandle, IDispatch** result) override {
    return Call([&] {
      RequirePointer(result);
      *result = NewScriptDictionary(transport_.GetCompPrototypeProperties(lngHandle));
    });
  }

  HRESULT STDMETHODCALLTYPE ResetStatus(LONG* result) override {
    return Call([&] { PutResult(result, transport_.ResetStatus()); });
  }
  HRESULT STDMETHODCALLTYPE DeleteComponent(LONG lngHandle, VARIANT_BOOL boolForgetServer,
                                            VARIANT_BOOL* result) override {
    return Call([&] { PutResult(result, transport_.DeleteComponent(lngHandle, boolForgetServer)); });
  }

  HRESULT STDMETHODCALLTYPE GenerateTransportDoc(::enTransportMode tmMode, BSTR* result) override {
    return Call([&] { PutResult(result, transport_.GenerateTransportDoc(enTransportMode(LongOf(tmMode)))); });
  }
  HRESULT STDMETHODCALLTYPE TrimDocument(IDispatch**, IDispatch** nNode, VARIANT_BOOL* boolKill) override {
    return Call([&] { TrimCallersTree(nNode, boolKill, false); });
  }
  HRESULT STDMETHODCALLTYPE TrimDocument2(IDispatch**, IDispatch** nNode, VARIANT_BOOL* boolKill) override {
    return Call([&] { TrimCallersTree(nNode, boolKill, true); });
  }
  HRESULT STDMETHODCALLTYPE MergeDocument(BSTR strDoc, LONG lngParent, LONG* result) override {
    return Call([&] { PutResult(result, transport_.MergeDocument(ToUtf8(strDoc), lngParent)); });
  }
  HRESULT STDMETHODCALLTYPE UpdateDocument(BSTR strDoc, LONG* result) override {
    return Call([&] { PutResult(result, transport_.UpdateDocument(ToUtf8(strDoc))); });
  }

  HRESULT STDMETHODCALLTYPE AddDomain(BSTR strName, BSTR strCode, BSTR strDesc, LONG* result) override {
    return Call([&] { PutResult(result, transport_.AddDomain(ToUtf8(strName), ToUtf8(strCode), ToUtf8(strDesc))); });
  }
  HRESULT STDMETHODCALLTYPE CountDomains(LONG* result) override {
    return Call([&] { PutResult(result, transport_.CountDomains()); });
  }
  // The caller's own dictionary is asked; any failure (no dictionary, no Exists) answers False.
  HRESULT STDMETHODCALLTYPE DicKeyExists(IDispatch** dic, VARIANT* value, VARIANT_BOOL* result) override {
    return Call([&] {
      PutResult(result, Swallow(vbFalse, [&] { return ScriptDictionaryHasKey(dic ? *dic : nullptr, *value); }));
    });
  }
  HRESULT STDMETHODCALLTYPE AddDomainItem(LONG lngDomain, LONG* result) override {
    return Call([&] { PutResult(result, transport_.AddDomainItem(lngDomain)); });
  }
  HRESULT STDMETHODCALLTYPE CountDomItems(LONG lngDomain, LONG* result) override {
    return Call([&] { PutResult(result, transport_.CountDomItems(lngDomain)); });
  }
  HRESULT STDMETHODCALLTYPE AddDomainProperty(LONG lngDomain, LONG lngItem, BSTR strName, BSTR strValue,
                                              LONG* result) override {
    return Call([&] {
      PutResult(result, transport_.AddDomainProperty(lngDomain, lngItem, ToUtf8(strName), ToUtf8(strValue)));
    });
  }
  HRESULT STDMETHODCALLTYPE DomainExists(BSTR strName, VARIANT_BOOL* result) override {
    return Call([&] { PutResult(result, transport_.DomainExists(ToUtf8(strName))); });
  }
  HRESULT STDMETHODCALLTYPE CountDomItemProperties(LONG lngDomain, LONG lngItem, LONG* result) override {
    return Call([&] { PutResult(result, transport_.CountDomItemProperties(lngDomain, lngItem)); });
  }
  HRESULT STDMETHODCALLTYPE FindDomainByName(BSTR* strName, LONG* result) override {
    return Call([&] {
      StringRef name(strName);
      PutResult(result, transport_.FindDomainByName(name));
    });
  }
  HRESULT STDMETHODCALLTYPE GetDomain(LONG lngDomain, BSTR* strCode, BSTR* strDesc, BSTR* result) override {
    return Call([&] {
      StringRef code(strCode);
      StringRef desc(strDesc);
      PutResult(result, transport_.GetDomain(lngDomain, code, desc));
    });
  }
  HRESULT STDMETHODCALLTYPE GetDomItemProperty(LONG lngDomain, LONG lngItem, LONG lngProp, BSTR* strVal,
                                               BSTR* result) override {
    return Call([&] {
      StringRef value(strVal);
      PutResult(result, transport_.GetDomItemProperty(lngDomain, lngItem, lngProp, value));
    });
  }
  HRESULT STDMETHODCALLTYPE FindDomItemPropByName(LONG lngDomain, LONG lngItem, BSTR strName, LONG* result) override {
    return Call([&] { PutResult(result, transport_.FindDomItemPropByName(lngDomain, lngItem, ToUtf8(strName))); });
  }

  HRESULT STDMETHODCALLTYPE AddPropDomain(BSTR strProp, BSTR strDomain, LONG* result) override {
    return Call([&] { PutResult(result, transport_.AddPropDomain(ToUtf8(strProp), ToUtf8(strDomain))); });
  }
  HRESULT STDMETHODCALLTYPE CountPropDomains(LONG* result) override {
    return Call([&] { PutResult(result, transport_.CountPropDomains()); });
  }
  HRESULT STDMETHODCALLTYPE FindPropDomainByPropName(BSTR strProperty, LONG* result) override {
    return Call([&] { PutResult(result, transport_.FindPropDomainByPropName(ToUtf8(strProperty))); });
  }
  HRESULT STDMETHODCALLTYPE GetPropDomain(LONG lngPropDomain, BSTR* strDomain, BSTR* result) override {
    return Call([&] {
      StringRef domain(strDomain);
      PutResult(result, transport_.GetPropDomain(lngPropDomain, domain));
    });
  }

 private:
  Transport transport_;
};

}  // namespace

HRESULT CreateTransportObject(REFIID iid, void** object) { return CreateAndQuery<TransportObject>(iid, object); }

}  // namespace varnex::server
