#include "ui/main_window/run_presenter.h"

#include "app/application.h"
#include "command_ids.h"
#include "platform/message_texts.h"
#include "text_ids.h"
#include "ui/dialogs/dialogs.h"
#include "ui/framework/open_dialogs.h"
#include "ui/main_window/main_view.h"
#include "ui/main_window/run_panel.h"
#include "ui/main_window/tool_bar.h"
#include "ui/models/closing_text.h"

namespace qlm {

CRunPresenter::CRunPresenter(CApplication& app, CMainView& view, const CToolBar& toolBar,
                             CStatusBar& statusBar, CRunPanel& panel, CDialogs& dialogs)
    : m_app(app),
      m_texts(app.Context().ports.engine.texts),
      m_view(view),
      m_toolBar(toolBar),
      m_statusBar(statusBar),
      m_panel(panel),
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

RunHealth CRunPresenter::Health() const {
  if (m_app.Run().HasErrors()) return RunHealth::Failed;
  return m_results.UnlistedCount() != 0 ? RunHealth::Incomplete : RunHealth::Good;
}

void CRunPresenter::ShowStatus(HWND frame) {
  const CBackupThread& run = m_app.Run();
  m_statusBar.ShowRun(StatusText(), run.Progress(), Health());
  m_statusBar.ShowPowerOff(PowerOffText());
  const std::optional<int> percent = Percent();
  if (percent) ShowProgress();
  m_indicator.ShowProgress(frame, percent ? CRunProgress{static_cast<size_t>(*percent), 100} : run.Progress(),
                           run.HasErrors());
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
  if (active && !m_active) Begin();
  if (ended) End(frame);
  m_active = active;
  ShowStatus(frame);
  ShowCounts();
  return ended;
}

void CRunPresenter::Begin() {
  m_indicator.Begin();
  RemoveNotice();
  m_shownRow = {};
  m_shownTick = 0;
  if (m_app.Run().IsListOnly()) return m_panel.Hide();
  m_panel.Open();
}

void CRunPresenter::End(HWND frame) {
  m_indicator.End(frame, m_app.Run().HasErrors());
  if (m_app.Run().IsListOnly()) return;
  const CVerdict verdict = MakeVerdict(m_texts, m_app.Run(), m_results);
  m_panel.ShowPercent(m_app.Run().Measure().percent, Health());
  m_panel.ShowVerdict(verdict);
  if (!m_app.IsClosing() && !my::IsInFront()) Notify(frame, verdict);
}

// The texts follow twice a second, and at once when another row or phase begins: nobody could read texts that
// change with every tick.
void CRunPresenter::ShowProgress() {
  constexpr uint64_t kPeriodMs = 500;
  const CBackupThread& run = m_app.Run();
  const CRunMeasure& measure = run.Measure();
  m_panel.ShowPercent(measure.percent, Health());
  const auto row = measure.row ? std::pair(measure.row->number + 1, measure.row->phase) : m_shownRow;
  if (row == m_shownRow && run.ElapsedMs() < m_shownTick + kPeriodMs) return;
  m_shownRow = row;
  m_shownTick = run.ElapsedMs();
  const CResults& rows = m_results.Rows();
  m_panel.ShowRun(RunPanelTexts(m_texts, measure, rows.empty() ? nullptr : rows.back().get()));
}

void CRunPresenter::Notify(HWND frame, const CVerdict& verdict) {
  using Kind = my::CNotice::Kind;
  my::CNotice notice;
  notice.kind = verdict.state == ResultState::Failed       ? Kind::Error
                : verdict.state == ResultState::Incomplete ? Kind::Warning
                                                           : Kind::Info;
  notice.title = notice.tip = m_texts.Text(IDS_DISPLAY_NAME);
  notice.text = verdict.text;
  notice.icon = reinterpret_cast<HICON>(::SendMessageW(frame, WM_GETICON, ICON_SMALL, 0));
  m_notice.emplace(frame, kNoticeMessage);
  m_notice->Show(notice);
}

void CRunPresenter::OnNotice(HWND frame, LPARAM event) {
  if (m_notice && m_notice->Handle(event)) my::BringToFront(frame);
}

void CRunPresenter::OnNewDocument() {
  if (!m_active) m_panel.Hide();
}

std::optional<int> CRunPresenter::Percent() const {
  const CBackupThread& run = m_app.Run();
  if (!run.IsActive() || run.IsListOnly()) return {};
  return run.Measure().percent;
}

void CRunPresenter::OpenOutcome(HWND frame) {
  const CBackupThread& run = m_app.Run();
  if (run.IsActive() || m_app.IsClosing() || my::HasOpenDialog(frame)) return;
  const bool listed = run.IsListOnly() && m_results.RowCount() == 1 && !run.HasErrors();
  if (listed && run.State() == RunState::Ended) return m_dialogs.ShowTargets(m_results.Shared(0));
  if (run.HasErrors()) OpenResults();
}

}  // namespace qlm
