#include "ui/framework/accessibility.h"

#include <initguid.h>
#include <oleacc.h>

#include "platform/win32/com.h"

namespace my {
namespace {

// MSAA numbers the items of a list from 1.
DWORD ChildId(size_t row) {
  return static_cast<DWORD>(row + 1);
}

void SetSpoken(HWND list, size_t row, MSAAPROPID property, const std::wstring& text) {
  CComPtr<IAccPropServices> services;
  if (FAILED(::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                                reinterpret_cast<void**>(services.Out()))))
    return;
  if (text.empty())
    services->ClearHwndProps(list, static_cast<DWORD>(OBJID_CLIENT), ChildId(row), &property, 1);
  else
    services->SetHwndPropStr(list, static_cast<DWORD>(OBJID_CLIENT), ChildId(row), property, text.c_str());
}

}  // namespace

void SetSpokenValue(HWND list, size_t row, const std::wstring& value) {
  SetSpoken(list, row, PROPID_ACC_VALUE, value);
}

void SetSpokenName(HWND list, size_t row, const std::wstring& name) {
  SetSpoken(list, row, PROPID_ACC_NAME, name);
}

void ReportItemFocus(HWND list, size_t row) {
  ::NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, list, OBJID_CLIENT, static_cast<LONG>(ChildId(row)));
  ::NotifyWinEvent(EVENT_OBJECT_FOCUS, list, OBJID_CLIENT, static_cast<LONG>(ChildId(row)));
}

void ReportItemState(HWND list, size_t row) {
  ::NotifyWinEvent(EVENT_OBJECT_STATECHANGE, list, OBJID_CLIENT, static_cast<LONG>(ChildId(row)));
}

}  // namespace my
