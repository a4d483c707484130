// The scripting runtime's Dictionary, the real one, for callers that expect it.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <varnex/dictionary.hpp>

namespace varnex::server {

// A new Scripting.Dictionary (a new reference) with the compare mode, keys and items of dictionary.
IDispatch* NewScriptDictionary(const Dictionary& dictionary);
// What the caller's dictionary answers to Exists(key): True only for True; raises its failures.
Boolean ScriptDictionaryHasKey(IDispatch* dictionary, const VARIANT& key);

}  // namespace varnex::server
