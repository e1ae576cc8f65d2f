// The power port. For use by the main thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace my {

// Values of the Windows API: flags of EndSession and ShutDown, and a reason.
inline constexpr uint32_t kLogOffForceIfHung = 0x10;
inline constexpr uint32_t kShutdownPowerOff = 0x8;
inline constexpr uint32_t kShutdownHybrid = 0x200;
inline constexpr uint32_t kShutdownInstallUpdates = 0x40;
inline constexpr uint32_t kReasonPlannedApplication = 0x80040000;

// An enabled privilege of the process token. The destructor closes the token but does not disable the
// privilege.
class IPrivilege {
 public:
  virtual ~IPrivilege() = default;
};

// Prevents the computer from sleeping until destroyed, on the thread that created it.
class IStayAwake {
 public:
  virtual ~IStayAwake() = default;
};

// Parameters are passed to the system unchanged.
class IPower {
 public:
  virtual ~IPower() = default;

  // Only one may exist at a time. The screen may still turn off.
  virtual std::unique_ptr<IStayAwake> KeepAwake() = 0;

  // Opens the token of the process and enables the privilege. Throws IDS_OPEN_TOKEN_FAILED,
  // IDS_PRIVILEGE_NOT_FOUND or IDS_ADJUST_PRIVILEGE_FAILED. Does not detect a privilege that the user does
  // not have.
  virtual std::unique_ptr<IPrivilege> EnablePrivilege(const std::wstring& name) = 0;

  // Throws IDS_LOGOFF_FAILED.
  virtual void EndSession(uint32_t flags, uint32_t reason) = 0;

  // Throws IDS_SLEEP_FAILED or IDS_HIBERNATE_FAILED.
  virtual void SetSuspendState(bool hibernate, bool force, bool disableWakeEvents) = 0;

  // Throws IDS_POWEROFF_FAILED.
  virtual void ShutDown(const std::wstring& message, uint32_t graceSeconds, uint32_t flags,
                        uint32_t reason) = 0;
};

}  // namespace my
