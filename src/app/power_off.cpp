#include "app/power_off.h"

#include <memory>

#include "app/messenger.h"
#include "app/session_end.h"
#include "engine/backup_thread.h"
#include "platform/message_texts.h"
#include "platform/power.h"
#include "settings/settings.h"
#include "text_ids.h"

namespace qlm {
namespace {

bool EndsSession(PowerOffType type) {
  return type == PowerOffType::LOGOFF || type == PowerOffType::POWEROFF;
}

}  // namespace

void CCommandPowerOff::Execute(bool run) {
  if (!run || !m_context.messenger.ConfirmDiscard()) return;
  if (m_context.run.IsActive()) {
    if (!m_context.messenger.Ask(IDS_ASK_STOP_AND_QUIT)) return;
    // The run may have ended, or been stopped, while the question was open.
    if (m_context.run.State() == RunState::Running) m_context.run.Stop();
  }
  my::IPower& power = m_context.ports.power;
  const auto privilege = power.EnablePrivilege(L"SeShutdownPrivilege");
  const CUISetting& ui = m_context.settings.ui;
  // The system may send its query before the call returns.
  if (EndsSession(ui.powerOffType)) m_context.session.Request();
  try {
    PowerOff(power, m_context.ports.engine.texts, ui.powerOffType,
             ShutdownFlags(ui.hybridShutdown, ui.installUpdates));
  } catch (...) {
    m_context.session.Withdraw();
    throw;
  }
}

uint32_t ShutdownFlags(bool hybrid, bool installUpdates) {
  return my::kShutdownPowerOff | (hybrid ? my::kShutdownHybrid : 0) |
         (installUpdates ? my::kShutdownInstallUpdates : 0);
}

void PowerOff(my::IPower& power, const my::IMessageTexts& texts, PowerOffType type, uint32_t shutdownFlags) {
  switch (type) {
    case PowerOffType::LOGOFF: return power.EndSession(my::kLogOffForceIfHung, 0);
    case PowerOffType::SLEEP: return power.SetSuspendState(false, false, false);
    case PowerOffType::HIBERNATE: return power.SetSuspendState(true, false, false);
    case PowerOffType::POWEROFF:
      return power.ShutDown(texts.Text(IDS_POWER_OFF_MESSAGE), 0, shutdownFlags | my::kShutdownPowerOff,
                            my::kReasonPlannedApplication);
  }
  throw my::CException(IDS_INTERNAL_ERROR,
                       {L"Unkonwn PowerOff type: " + std::to_wstring(static_cast<int>(type))});
}

}  // namespace qlm
