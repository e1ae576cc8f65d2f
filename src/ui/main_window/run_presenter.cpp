#include "ui/main_window/run_presenter.h"

#include "app/application.h"
#include "command_ids.h"
#include "platform/message_texts.h"
#include "text_ids.h"
#include "ui/dialogs/dialogs.h"
#include "ui/main_window/main_view.h"
#include "ui/main_window/status_bar.h"
#include "ui/main_window/tool_bar.h"
#include "ui/models/closing_text.h"

namespace qlm {

CRunPresenter::CRunPresenter(CApplication& app, CMainView& view, const CToolBar& toolBar,
                             CStatusBar& statusBar, CDialogs& dialogs)
    : m_app(app),
      m_texts(app.Context().ports.engine.texts),
      m_view(view),
      m_toolBar(toolBar),
      m_statusBar(statusBar),
      m_dialogs(dialogs),
      m_results(app.Settings().ui, m_texts, app.Context().ports.engine.clock),
      m_indicator(app.Context().ports.power) {}

void CRunPresenter::ClearResults() {
  m_results.Clear();
  m_view.TaskModel().ClearResults();
  RefreshLists(0);
}

void CRunPresenter::ShowResults(size_t firstRow, const CResults& rows) {
  m_results.ShowResults(firstRow, rows);
  m_view.TaskModel().ShowResults(rows);
  RefreshLists(firstRow);
}

void CRunPresenter::RefreshLists(size_t firstRow) {
  m_view.Redraw();
  m_dialogs.RefreshResults(firstRow);
}

void CRunPresenter::OpenResults() {
  m_dialogs.ShowResults(m_results);
}

std::wstring CRunPresenter::StatusText() const {
  const size_t unlisted = m_results.UnlistedCount();
  std::wstring text = m_app.Run().StatusText();
  if (!m_app.HistoryFailure().empty()) text += L"  " + m_app.HistoryFailure();
  if (unlisted == 0) return text;
  const my::CMsgArg count = std::to_wstring(unlisted);
  return text + L"  " + my::MakeText(m_texts, IDS_UNLISTED_COUNT, {&count, 1});
}

void CRunPresenter::ShowStatus(HWND frame) const {
  const CBackupThread& run = m_app.Run();
  const RunHealth health = run.HasErrors()                  ? RunHealth::Failed
                           : m_results.UnlistedCount() != 0 ? RunHealth::Incomplete
                                                            : RunHealth::Good;
  m_statusBar.ShowRun(StatusText(), run.Progress(), health);
  m_statusBar.ShowPowerOff(PowerOffText());
  m_indicator.ShowProgress(frame, run.Progress(), run.HasErrors());
  if (!m_app.IsClosing()) return;
  const CResults& rows = m_results.Rows();
  m_dialogs.ShowClosing(ClosingText(m_texts, rows),
                        rows.empty() ? std::wstring() : rows.back()->destinationPath);
}

std::wstring CRunPresenter::PowerOffText() const {
  if (!m_app.Run().WillPowerOff()) return {};
  const my::CMsgArg action = my::CTextId{kPowerOffTypeTexts[m_app.Settings().ui.powerOffType]};
  return my::MakeText(m_texts, IDS_POWER_OFF_PENDING, {&action, 1});
}

std::wstring CRunPresenter::CountsText() const {
  std::wstring text;
  if (const size_t errors = m_results.ErrorCount(); errors != 0) {
    const my::CMsgArg count = std::to_wstring(errors);
    text = my::MakeText(m_texts, IDS_ERROR_COUNT, {&count, 1}) + L"  ";
  }
  const CDocument& document = m_app.Document();
  const my::CMsgArg counts[] = {std::to_wstring(document.Tasks().size()),
                                std::to_wstring(document.Dsts().size())};
  return text + my::MakeText(m_texts, IDS_ITEM_COUNTS, counts);
}

void CRunPresenter::ShowCounts() const {
  m_statusBar.ShowCounts(CountsText());
}

bool CRunPresenter::ShowState(HWND frame) {
  const bool active = m_app.Run().IsActive();
  const bool ended = m_active && !active;
  m_toolBar.Change(ID_RUN, active ? IDS_TOOL_STOP : IDS_TOOL_RUN, active ? ToolIcon::Stop : ToolIcon::Run);
  m_view.ShowRunning(active);
  if (active && !m_active) m_indicator.Begin();
  if (ended) m_indicator.End(frame, m_app.Run().HasErrors());
  m_active = active;
  ShowStatus(frame);
  ShowCounts();
  return ended;
}

void CRunPresenter::OpenOutcome() {
  const CBackupThread& run = m_app.Run();
  if (run.IsActive() || m_app.IsClosing()) return;
  const bool listed = run.IsListOnly() && m_results.RowCount() == 1 && !run.HasErrors();
  if (listed && run.State() == RunState::Ended) return m_dialogs.ShowTargets(m_results.Shared(0));
  if (run.HasErrors()) OpenResults();
}

}  // namespace qlm
