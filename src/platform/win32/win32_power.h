#pragma once

#include "platform/power.h"

namespace my {

class CWin32Power : public IPower {
 public:
  std::unique_ptr<IStayAwake> KeepAwake() override;
  std::unique_ptr<IPrivilege> EnablePrivilege(const std::wstring& name) override;

  void EndSession(uint32_t flags, uint32_t reason) override;
  void SetSuspendState(bool hibernate, bool force, bool disableWakeEvents) override;
  void ShutDown(const std::wstring& message, uint32_t graceSeconds, uint32_t flags, uint32_t reason) override;
};

}  // namespace my
