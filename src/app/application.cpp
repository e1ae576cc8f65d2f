#include "app/application.h"

#include <utility>

#include "app/windows.h"
#include "command_ids.h"
#include "history/run_recorder.h"
#include "platform/message_texts.h"
#include "support/secret.h"
#include "text_ids.h"

namespace qlm {
namespace {

bool IsMru(uint32_t id) {
  return id >= ID_MRU_FIRST && id <= ID_MRU_LAST;
}

}  // namespace

CApplication::CApplication(const CAppPorts& ports, CSettings& settings, CDocument& document,
                           my::IMessageBox& box, IMainWindow& window, IDialogs& dialogs,
                           const std::wstring& commandLine)
    : m_settings(settings),
      m_document(document),
      m_messenger(ports.engine.texts, box, m_document),
      m_run(ports.threads, ports.engine.clock, ports.engine.texts, *this),
      m_replace(m_document, m_settings.replaceDlg, window, dialogs),
      m_session(m_document, m_run),
      m_context{ports, m_messenger, m_settings, m_document, m_run, m_replace, m_session, window, dialogs},
      m_table(m_context, commandLine),
      m_edits(m_context),
      m_record(ports.threads) {
  m_document.AddListener([this](DocChangeEventFlags) { OnDocumentChanged(); });
}

CApplication::~CApplication() {
  my::Wipe(m_settings.archive.password);
}

void CApplication::Start() {
  RunCommand(m_context, *m_table.init, true, false);
}

template <class TUse>
bool CApplication::WithCommand(uint32_t id, TUse use) {
  if (IsMru(id)) {
    CCommandOpenMru recent(m_context, id - ID_MRU_FIRST);
    use(recent);
    return true;
  }
  CCommand* command = m_table.Find(id);
  if (!command) command = m_edits.Find(id);
  if (command) use(*command);
  return command != nullptr;
}

void CApplication::Execute(uint32_t id) {
  if (WithCommand(id, [this](CCommand& command) { Execute(command); })) return;
  m_messenger.ShowError(my::CException(IDS_INTERNAL_ERROR, {L"Unknown command: " + std::to_wstring(id)}));
}

bool CApplication::IsEnabled(uint32_t id) {
  bool enabled = false;
  WithCommand(id, [&](CCommand& command) { enabled = IsEnabled(command); });
  return enabled;
}

void CApplication::Execute(CCommand& command) {
  if (!m_closing) RunCommand(m_context, command, true, false);
}

bool CApplication::IsEnabled(CCommand& command) const {
  if (m_closing) return false;
  try {
    command.Execute(false);
    return true;
  } catch (const my::CException&) {
    return false;
  }
}

void CApplication::ShowFailure(const std::exception_ptr& failure) const {
  try {
    std::rethrow_exception(failure);
  } catch (...) {
    ShowCurrentFailure(m_context);
  }
}

bool CApplication::OnClose() {
  if (m_closing) {
    if (m_run.IsActive()) return false;
    RunCommand(m_context, *m_table.quit, true, false);
    return true;
  }
  if (m_replace.IsOpen()) {
    m_context.dialogs.CancelReplace();
    if (m_replace.IsOpen()) return false;
  }
  if (!m_messenger.ConfirmDiscard()) return false;
  if (m_run.IsActive() && !m_messenger.Ask(IDS_ASK_STOP_AND_QUIT)) return false;
  // The run may have ended, or been stopped, while the question was open.
  if (m_run.IsActive()) {
    m_closing = true;
    if (m_run.State() == RunState::Running) m_run.Stop();
    m_context.window.ShowClosing();
    return false;
  }
  RunCommand(m_context, *m_table.quit, true, false);
  return true;
}

bool CApplication::OnQueryEndSession() {
  UpdateHold();
  return m_session.BlockReason() == 0;
}

void CApplication::OnEndSession(bool ends) {
  if (!ends) {
    m_session.Withdraw();
    return UpdateHold();
  }
  try {
    m_record.Wait();
    if (m_replace.IsOpen()) m_context.dialogs.CancelReplace();
    m_table.quit->Store();
  } catch (...) {
    return;  // the process ends before anyone could read a message
  }
}

void CApplication::OnDocumentChanged() {
  if (m_document.IsModified()) m_session.Withdraw();
  UpdateHold();
}

void CApplication::UpdateHold() {
  const uint32_t reason = m_session.BlockReason();
  if (std::exchange(m_holdReason, reason) == reason) return;
  m_context.window.HoldSession(reason == 0 ? std::wstring() : m_context.ports.engine.texts.Text(reason));
}

void CApplication::OnResults(size_t firstRow, const CResults& rows) {
  m_context.window.ShowResults(firstRow, rows);
}

void CApplication::OnStatus() {
  m_context.window.ShowRunStatus();
}

void CApplication::OnStateChanged() {
  if (m_run.State() == RunState::Running) {
    m_session.Withdraw();
    m_record.ClearFailure();
  }
  if (!m_run.IsActive() && !m_recordIsLate) m_context.window.StopTimer();
  if (!m_run.IsActive() && m_closing) m_context.window.PostClose();
  UpdateHold();
  m_context.window.ShowRunState();
}

void CApplication::OnEnded() {
  const CAppPorts& ports = m_context.ports;
  m_record.Write(RunRecord(ports.engine, ports.folders, m_run, RunProgram::WINDOW, m_document.Path()));
  m_recordIsLate = m_record.IsWriting();
}

void CApplication::OnTimer() {
  m_run.Tick();
  if (m_run.IsActive() || !m_recordIsLate || m_record.IsWriting()) return;
  m_recordIsLate = false;
  m_context.window.StopTimer();
  m_context.window.ShowRunState();  // with the failure, if there is one
}

void CApplication::OnPowerOff() {
  m_record.Wait();
  RunCommand(m_context, *m_table.powerOff, true, false);
}

}  // namespace qlm
