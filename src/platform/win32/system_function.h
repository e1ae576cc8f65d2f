#pragma once

#include <windows.h>

namespace my {

// Makes the process load libraries that are named without a path from the system folder only, never from the
// folder of the program, which may be one of downloads. To be called first of all.
inline void LoadOnlySystemLibraries() {
  ::SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
}

// Returns a function of a system library; null if this version of the system lacks it. The library is loaded
// from the system folder only and stays loaded. `Function` is a type such as `UINT WINAPI(HWND)`. Callers
// should keep the result.
template <class Function>
Function* SystemFunction(const wchar_t* library, const char* name) {
  const HMODULE module = ::LoadLibraryExW(library, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (!module) return nullptr;
  return reinterpret_cast<Function*>(reinterpret_cast<void (*)()>(::GetProcAddress(module, name)));
}

}  // namespace my
