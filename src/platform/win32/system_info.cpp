#include "platform/win32/system_info.h"

#include <windows.h>

#include <array>
#include <cwchar>

#include "platform/win32/system_function.h"

namespace my {

// GetVersionEx returns the version that the manifest of the program names.
std::wstring SystemInfoText() {
  RTL_OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  using GetVersionOf = LONG WINAPI(RTL_OSVERSIONINFOW*);
  if (const auto getVersion = SystemFunction<GetVersionOf>(L"ntdll.dll", "RtlGetVersion"))
    getVersion(&version);
  std::array<wchar_t, 64> text{};
  std::swprintf(text.data(), text.size(), L"Windows %lu.%lu.%lu, %04X, %u", version.dwMajorVersion,
                version.dwMinorVersion, version.dwBuildNumber, ::GetUserDefaultUILanguage(), ::GetACP());
  return text.data();
}

}  // namespace my
