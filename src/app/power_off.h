// The actions after a run: log off, sleep, hibernate or power off.
#pragma once

#include <cstdint>

#include "app/command.h"
#include "settings/settings_enums.h"

namespace my {
class IMessageTexts;
}

namespace qlm {

class CCommandPowerOff final : public CCommand {
 public:
  using CCommand::CCommand;
  void Execute(bool run) override;
};

// Returns the shutdown flags for the settings.
uint32_t ShutdownFlags(bool hybrid, bool installUpdates);

// Performs the action. Throws IDS_LOGOFF_FAILED, IDS_SLEEP_FAILED, IDS_HIBERNATE_FAILED or
// IDS_POWEROFF_FAILED, and IDS_INTERNAL_ERROR for an unknown type.
void PowerOff(my::IPower& power, const my::IMessageTexts& texts, PowerOffType type, uint32_t shutdownFlags);

}  // namespace qlm
