// The port to the computer's power. The program's first thread calls.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace my {

// Values of the system: flags of EndSession and ShutDown, and a reason.
inline constexpr uint32_t kLogOffForceIfHung = 0x10;
inline constexpr uint32_t kShutdownPowerOff = 0x8;
inline constexpr uint32_t kShutdownHybrid = 0x200;
inline constexpr uint32_t kShutdownInstallUpdates = 0x40;
inline constexpr uint32_t kReasonPlannedApplication = 0x80040000;

// A privilege of the process's token; the token is closed, not the privilege taken back, on destruction.
class IPrivilege {
 public:
  virtual ~IPrivilege() = default;
};

// Keeps the computer from falling asleep until it is destroyed, on the thread that has made it.
class IStayAwake {
 public:
  virtual ~IStayAwake() = default;
};

// What the actions are given goes to the system as it is.
class IPower {
 public:
  virtual ~IPower() = default;

  // One at a time. The screen may still be switched off.
  virtual std::unique_ptr<IStayAwake> KeepAwake() = 0;

  // Opens the process's token and enables the privilege. Throws IDS_OPEN_TOKEN_FAILED,
  // IDS_PRIVILEGE_NOT_FOUND or IDS_ADJUST_PRIVILEGE_FAILED. One that was not granted is not noticed here.
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
