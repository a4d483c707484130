// IDispatch over the type library embedded in varnex.dll, for the dual interfaces of the server.
//
// Late-bound callers (scripts) pass every variable as a by-reference VARIANT and may omit
// optional arguments. Each argument is converted to a temporary of the type the library
// declares (enumerations are Longs), an omitted optional one takes its default, the method is
// called through the interface's vtable, and by-reference arguments are written back into the
// caller's variables. Property gets and methods answer either invoke flag; NewEnum (-4) too.
// Failures of the conversion keep the script runtime's own errors: DISP_E_TYPEMISMATCH (13),
// DISP_E_BADPARAMCOUNT (450, also for a required argument left out), DISP_E_MEMBERNOTFOUND (438).
#pragma once

#include <vector>

#include <windows.h>
#include <oaidl.h>

namespace varnex::server {

class Dispatcher {
 public:
  // The dispatcher of a dual interface of the type library; it lives as long as the DLL.
  static Dispatcher& Of(REFIID iid);

  HRESULT GetTypeInfo(ITypeInfo** info);
  HRESULT GetIDsOfNames(LPOLESTR* names, UINT count, DISPID* ids);
  // Calls a member on target, an object implementing the interface.
  HRESULT Invoke(IUnknown* target, DISPID id, WORD flags, DISPPARAMS* params, VARIANT* result,
                 EXCEPINFO* exception, UINT* argument_error);

  Dispatcher(ITypeInfo* dispatch_info, ITypeInfo* interface_info);
  ~Dispatcher();
  Dispatcher(const Dispatcher&) = delete;
  Dispatcher& operator=(const Dispatcher&) = delete;

 private:
  // The member to call, or null; the caller releases it with ReleaseFuncDesc.
  FUNCDESC* FindMember(DISPID id, WORD flags) const;

  struct Member {
    MEMBERID id;
    INVOKEKIND kind;
    UINT index;  // of its FUNCDESC in interface_info_
  };

  ITypeInfo* dispatch_info_;   // what GetTypeInfo hands out
  ITypeInfo* interface_info_;  // the vtable layout and parameter types
  std::vector<Member> members_;
};

}  // namespace varnex::server
