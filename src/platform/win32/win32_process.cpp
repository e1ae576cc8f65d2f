#include "platform/win32/win32_process.h"

#include <windows.h>

#include "platform/win32/handle.h"
#include "resource.h"
#include "support/exception.h"
#include "support/secret.h"

namespace my {

uint32_t CWin32Process::Run(const CProcessStart& start) {
  std::wstring commandLine = L"\"" + start.program + L"\"";
  const CWipeAtEnd wipe(commandLine);  // the arguments may hold a password
  commandLine.reserve(commandLine.size() + start.arguments.size() + 1);
  if (!start.arguments.empty()) commandLine.append(L" ").append(start.arguments);
  const wchar_t* const folder = start.workingFolder.empty() ? nullptr : start.workingFolder.c_str();
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION information{};
  if (!::CreateProcessW(start.program.c_str(), commandLine.data(), nullptr, nullptr, TRUE,
                        start.console ? 0 : CREATE_NO_WINDOW, nullptr, folder, &startup, &information)) {
    throw CException(IDS_CREATE_PROCESS_FAILED, {CSystemError::FromWin32(::GetLastError()), start.program});
  }
  const CKernelHandle process(information.hProcess);
  const CKernelHandle thread(information.hThread);
  if (!start.wait) return kStillActive;
  DWORD exitCode = 0;
  if (::WaitForSingleObject(process.Get(), INFINITE) != WAIT_OBJECT_0 ||
      !::GetExitCodeProcess(process.Get(), &exitCode)) {
    throw CException(IDS_EXIT_CODE_FAILED, {CSystemError::FromWin32(::GetLastError())});
  }
  return exitCode;
}

}  // namespace my
