// powrprof.h needs windows.h before it.
#include <windows.h>

#include <powrprof.h>

#include "platform/win32/handle.h"
#include "platform/win32/last_error.h"
#include "platform/win32/system_function.h"
#include "platform/win32/win32_power.h"
#include "support/exception.h"
#include "text_ids.h"

namespace my {
namespace {

static_assert(kLogOffForceIfHung == (EWX_LOGOFF | EWX_FORCEIFHUNG));
static_assert(kShutdownPowerOff == SHUTDOWN_POWEROFF && kShutdownHybrid == SHUTDOWN_HYBRID);
static_assert(kShutdownInstallUpdates == SHUTDOWN_INSTALL_UPDATES);
static_assert(kReasonPlannedApplication == (SHTDN_REASON_FLAG_PLANNED | SHTDN_REASON_MAJOR_APPLICATION));
static_assert(ES_SYSTEM_REQUIRED == 0x1 && ES_CONTINUOUS == 0x80000000);

class CTokenPrivilege : public IPrivilege {
 public:
  explicit CTokenPrivilege(CKernelHandle token) : m_token(std::move(token)) {}

 private:
  CKernelHandle m_token;
};

struct CStayAwake : IStayAwake {
  CStayAwake() { ::SetThreadExecutionState(ES_CONTINUOUS | ES_SYSTEM_REQUIRED); }
  CStayAwake(const CStayAwake&) = delete;
  CStayAwake& operator=(const CStayAwake&) = delete;
  ~CStayAwake() override { ::SetThreadExecutionState(ES_CONTINUOUS); }
};

CKernelHandle OpenToken() {
  HANDLE token = nullptr;
  if (!::OpenProcessToken(::GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY, &token)) {
    throw CException(IDS_OPEN_TOKEN_FAILED, {LastError()});
  }
  return CKernelHandle(token);
}

// Throws `messageId` with the error code of an action that has failed. Drivers may refuse to sleep without
// setting one.
[[noreturn]] void ThrowFailure(uint32_t messageId, DWORD code) {
  throw CException(messageId, {CSystemError::FromWin32(code == ERROR_SUCCESS ? ERROR_GEN_FAILURE : code)});
}

}  // namespace

std::unique_ptr<IStayAwake> CWin32Power::KeepAwake() {
  return std::make_unique<CStayAwake>();
}

std::unique_ptr<IPrivilege> CWin32Power::EnablePrivilege(const std::wstring& name) {
  CKernelHandle token = OpenToken();
  TOKEN_PRIVILEGES privileges{};
  privileges.PrivilegeCount = 1;
  privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  if (!::LookupPrivilegeValueW(nullptr, name.c_str(), &privileges.Privileges[0].Luid)) {
    throw CException(IDS_PRIVILEGE_NOT_FOUND, {LastError(), name});
  }
  if (!::AdjustTokenPrivileges(token.Get(), FALSE, &privileges, 0, nullptr, nullptr)) {
    throw CException(IDS_ADJUST_PRIVILEGE_FAILED, {LastError(), name});
  }
  return std::make_unique<CTokenPrivilege>(std::move(token));
}

void CWin32Power::EndSession(uint32_t flags, uint32_t reason) {
  if (!::ExitWindowsEx(flags, reason)) ThrowFailure(IDS_LOGOFF_FAILED, ::GetLastError());
}

void CWin32Power::SetSuspendState(bool hibernate, bool force, bool disableWakeEvents) {
  const auto suspend = SystemFunction<decltype(::SetSuspendState)>(L"powrprof.dll", "SetSuspendState");
  if (suspend && suspend(hibernate, force, disableWakeEvents)) return;
  ThrowFailure(hibernate ? IDS_HIBERNATE_FAILED : IDS_SLEEP_FAILED, ::GetLastError());
}

void CWin32Power::ShutDown(const std::wstring& message, uint32_t graceSeconds, uint32_t flags,
                           uint32_t reason) {
  std::wstring text = message;  // the function needs a writable buffer
  const DWORD code = ::InitiateShutdownW(nullptr, text.data(), graceSeconds, flags, reason);
  if (code != ERROR_SUCCESS) ThrowFailure(IDS_POWEROFF_FAILED, code);
}

}  // namespace my
