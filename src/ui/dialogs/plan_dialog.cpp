#include "ui/dialogs/plan_dialog.h"

#include <algorithm>
#include <utility>

#include "app/explorer_commands.h"
#include "app/plan_actions.h"
#include "platform/message_texts.h"
#include "support/paths.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/dialogs/target_dialog.h"

namespace qlm {
namespace {

constexpr UINT_PTR kNewsTimer = 1;
constexpr UINT kNewsPeriodMs = 100;

}  // namespace

CPlanDialog::CPlanDialog(CAppContext& context, CColumnsDlgSetting& setting)
    : CListDialog(context, IDD_PLAN, setting),
      m_model(context.settings.ui, context.ports.engine.texts, context.ports.engine.clock),
      m_adviceModel(context.settings.ui, context.ports.engine.texts),
      m_matrix(m_model, [this](size_t row, size_t column) { return m_model.SpokenCell(row, column); }),
      m_advice(m_adviceModel) {}

CPlanDialog::~CPlanDialog() = default;

my::CBox CPlanDialog::Layout() const {
  using my::Control;
  return my::Column(
      {my::LabelOf(IDC_PLAN_MATRIX), Control(IDC_PLAN_MATRIX).Wide().Tall().Lines(10),
       my::Flow({Control(IDC_PLAN_SUMMARY), Control(IDC_PLAN_STATE).Wide()}), my::LabelOf(IDC_PLAN_DETAIL),
       Control(IDC_PLAN_DETAIL).Wide().Lines(8),
       my::Flow({Control(IDC_PLAN_TARGETS), Control(IDC_PLAN_SHOW_NEWEST), Control(IDC_PLAN_EXCLUDE)}),
       my::LabelOf(IDC_PLAN_ADVICE), Control(IDC_PLAN_ADVICE).Wide().Tall().Lines(5),
       my::Flow({Control(IDC_PLAN_RECYCLE), Control(IDC_LIST_COPY), Control(IDC_PLAN_STOP),
                 Control(IDC_PLAN_AGAIN), my::Buttons({IDCANCEL})})});
}

bool CPlanDialog::OnInit() {
  UseList(m_matrix, m_model, IDC_PLAN_MATRIX, IDM_PLAN);
  m_matrix.onColumn = [this] { ShowCell(); };
  m_matrix.Events().focusChanged = [this] { ShowCell(); };
  m_matrix.Events().activate = [this](size_t) { OnCommand(IDC_PLAN_TARGETS, BN_CLICKED); };
  InitAdvice();
  ::SetTimer(Hwnd(), kNewsTimer, kNewsPeriodMs, nullptr);
  ShowPlan();
  return true;
}

void CPlanDialog::InitAdvice() {
  UseList(m_advice, m_adviceModel, IDC_PLAN_ADVICE, IDM_PLAN_ADVICE);
  m_advice.Events().focusChanged = [this] { ShowFinding(); };
  m_advice.Events().activate = [this](size_t) { GoToFinding(); };
}

void CPlanDialog::Start(CPlanRequest request, CPlanIds ids) {
  m_ids = std::move(ids);
  m_worker.reset();
  m_model.Begin(request.scope);
  m_adviceModel.Begin(request.scope.content);
  m_outdated = false;
  m_failure.clear();
  m_state = State::Failed;  // unless the thread starts
  m_worker =
      std::make_unique<CPlanWorker>(m_context.ports.engine, m_context.ports.threads, std::move(request));
  m_state = State::Planning;
  if (Hwnd()) ShowPlan();
}

void CPlanDialog::OnDocumentChanged(DocChangeEventFlags what) {
  if (!Hwnd() || what == DocChangeEventFlags::CHNAGE_PATH) return;
  m_outdated = true;
  ShowState();
}

void CPlanDialog::OnClosed(int result) {
  ::KillTimer(Hwnd(), kNewsTimer);
  m_matrix.Speak({});
  m_worker.reset();
  CListDialog::OnClosed(result);
}

std::optional<LRESULT> CPlanDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != WM_TIMER || wParam != kNewsTimer) return CListDialog::OnMessage(message, wParam, lParam);
  TakeNews();
  return 0;
}

void CPlanDialog::TakeNews() {
  if (!m_worker) return;
  CPlanNews news = m_worker->Take();
  const bool hasRows = !news.tasks.empty();
  const bool hasFindings = !news.findings.empty();
  m_model.Add(std::move(news.tasks));
  m_adviceModel.Add(news.findings);
  if (news.ended) End(news.error);
  if (hasRows) m_matrix.Refresh();
  if (hasFindings) m_advice.Refresh();
  if (hasRows && !m_matrix.Focused() && m_wantedRow < m_model.RowCount()) {
    m_matrix.SetCell(m_wantedRow, std::min(m_matrix.Column(), m_model.ColumnCount() - 1));
    ShowCell();
  }
  if (hasRows || news.ended) ShowState();
}

void CPlanDialog::End(const my::CSimpleErr& error) {
  m_worker.reset();
  m_state = State::Complete;
  if (!error) return;
  m_state = error.code == IDS_STOPPED ? State::Stopped : State::Failed;
  m_failure = my::OneLine(error.message);
}

// Shows the plan from its start.
void CPlanDialog::ShowPlan() {
  m_wantedRow = m_matrix.Focused().value_or(0);
  m_matrix.Speak({});
  m_matrix.ResetColumns();
  m_matrix.Refresh();
  m_advice.Refresh();
  ShowState();
  ShowCell();
}

void CPlanDialog::ShowState() {
  SetItemText(IDC_PLAN_STATE, StateText());
  SetItemText(IDC_PLAN_SUMMARY, m_model.CountsText());
  EnableItem(IDC_PLAN_STOP, m_state == State::Planning);
  ShowFinding();
}

std::wstring CPlanDialog::StateText() const {
  if (m_outdated) return Text(IDS_PLAN_OUTDATED);
  const auto planned = std::to_wstring(m_model.RowCount());
  const auto all = std::to_wstring(m_model.Scope().content.tasks.size());
  switch (m_state) {
    case State::Stopped: return Text(IDS_PLAN_STOPPED, {planned, all});
    case State::Failed: return m_failure;
    case State::Complete: return m_adviceModel.RowCount() == 0 ? Text(IDS_PLAN_NO_ADVICE) : std::wstring();
    case State::Planning: break;
  }
  return planned == all ? Text(IDS_PLAN_CHECKING) : Text(IDS_PLAN_PROGRESS, {planned, all});
}

bool CPlanDialog::IsWarning(int controlId) const {
  return controlId == IDC_PLAN_STATE && (m_outdated || m_state == State::Failed);
}

const CPlanTask* CPlanDialog::FocusedTask() const {
  const auto row = m_matrix.Focused();
  return row && *row < m_model.RowCount() ? &m_model.Task(*row) : nullptr;
}

void CPlanDialog::ShowCell() {
  const CPlanTask* plan = FocusedTask();
  const auto row = plan ? m_matrix.Focused() : std::nullopt;
  SetItemText(IDC_PLAN_DETAIL, row ? m_model.Detail(*row, m_matrix.Column()) : std::wstring());
  EnableItem(IDC_PLAN_TARGETS, plan != nullptr);
  EnableItem(IDC_PLAN_SHOW_NEWEST, plan && plan->newest);
  EnableItem(IDC_PLAN_EXCLUDE, plan && plan->newest);
  m_matrix.Speak(row);
}

const CAdvice* CPlanDialog::FocusedFinding() const {
  const auto row = m_advice.Focused();
  return row && *row < m_adviceModel.RowCount() ? &m_adviceModel.Finding(*row) : nullptr;
}

// Focuses the cell that the focused finding is about, as far as it is about one.
void CPlanDialog::ShowFinding() {
  const CAdvice* finding = FocusedFinding();
  EnableItem(IDC_PLAN_RECYCLE, finding && finding->kind == AdviceKind::Leftover);
  if (!finding || ::GetFocus() != m_advice.Hwnd()) return;
  const size_t row = finding->task.value_or(m_matrix.Focused().value_or(0));
  const size_t column = finding->dst ? CPlanMatrixModel::FirstDst + *finding->dst : m_matrix.Column();
  if (row >= m_model.RowCount()) return;
  m_matrix.SetCell(row, column);
  ShowCell();
  // The list may have no room for the whole text.
  SetItemText(IDC_PLAN_DETAIL, AdviceLine(Texts(), *finding) + L"\r\n\r\n" + ItemText(IDC_PLAN_DETAIL));
}

void CPlanDialog::GoToFinding() {
  ShowFinding();
  ::SetFocus(m_matrix.Hwnd());
}

bool CPlanDialog::Execute(int id, int) {
  switch (id) {
    case IDC_PLAN_TARGETS: ShowTargets(); return true;
    case IDC_PLAN_SHOW_NEWEST: ShowNewest(); return true;
    case IDC_PLAN_EXCLUDE: Exclude(); return true;
    case IDC_PLAN_RECYCLE: Recycle(); return true;
    case IDC_PLAN_AGAIN: PlanAgain(); return true;
    case IDC_PLAN_STOP:
      if (m_worker) m_worker->Stop();
      return true;
    default: return false;
  }
}

bool CPlanDialog::OnKey(UINT key) {
  if (key != VK_F5) return false;
  OnCommand(IDC_PLAN_AGAIN, BN_CLICKED);
  return true;
}

void CPlanDialog::ShowTargets() {
  if (FocusedTask())
    CTargetDialog(m_context, m_model.RowOf(*m_matrix.Focused(), m_matrix.Column())).DoModal(Hwnd());
}

void CPlanDialog::ShowNewest() {
  const CPlanTask* plan = FocusedTask();
  if (!plan || !plan->newest) return;
  CCommandExplorer(m_context, my::JoinPath(plan->task->path, plan->newest->RelativePath()), false)
      .Execute(true);
}

void CPlanDialog::Exclude() {
  const CPlanTask* plan = FocusedTask();
  if (!plan || !plan->newest) return;
  if (ExcludeFile(m_context, *plan->task, plan->newest->RelativePath())) PlanAgain();
}

void CPlanDialog::Recycle() {
  const CAdvice* finding = FocusedFinding();
  if (!finding || finding->kind != AdviceKind::Leftover) return;
  // The plan may go on while the question is open, which moves the findings.
  const CAdvice leftover = *finding;
  if (!RecycleLeftover(m_context, leftover)) return;
  m_adviceModel.Remove(leftover);
  m_advice.Refresh();
  ShowFinding();
}

void CPlanDialog::PlanAgain() {
  Start(MakePlanRequest(m_context, m_ids), m_ids);
}

}  // namespace qlm
