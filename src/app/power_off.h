// What a run may end with: the computer logs off, sleeps or is powered off.
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

// What the settings ask of a shutdown, as the system's flags.
uint32_t ShutdownFlags(bool hybrid, bool installUpdates);

// Does it. Throws IDS_LOGOFF_FAILED, IDS_SLEEP_FAILED, IDS_HIBERNATE_FAILED or IDS_POWEROFF_FAILED, and
// IDS_INTERNAL_ERROR for an unknown type.
void PowerOff(my::IPower& power, const my::IMessageTexts& texts, PowerOffType type, uint32_t shutdownFlags);

}  // namespace qlm
