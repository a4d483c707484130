#include "script_dictionary.hpp"

#include "errors.hpp"
#include "late_bound_object.hpp"
#include "variants.hpp"

namespace varnex::server {

IDispatch* NewScriptDictionary(const Dictionary& dictionary) {
  CLSID clsid;
  ThrowIfFailed(CLSIDFromProgID(L"Scripting.Dictionary", &clsid));
  ComPtr<IDispatch> created;
  ThrowIfFailed(CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                 reinterpret_cast<void**>(created.put())));
  LateBoundObject members(created);
  if (dictionary.CompareMode() != BinaryCompare) {
    members.Let("CompareMode", {}, Variant(static_cast<Long>(dictionary.CompareMode())));
  }
  const std::vector<std::string> keys = dictionary.Keys();
  const std::vector<Variant> items = dictionary.Items();
  for (std::size_t i = 0; i < keys.size(); ++i) members.Get("Add", {Variant(keys[i]), items[i]});
  return created.detach();
}

Boolean ScriptDictionaryHasKey(IDispatch* dictionary, const VARIANT& key) {
  if (dictionary == nullptr) throw AutomationError::Runtime(errObjectNotSet);
  LateBoundObject members(ComPtr<IDispatch>::Share(dictionary));
  return members.Get("Exists", {ToCoreVariant(key)}).AsBoolean() == vbTrue ? vbTrue : vbFalse;
}

}  // namespace varnex::server
