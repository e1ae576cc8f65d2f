#include "ui/dialogs/dialogs.h"

#include "app/manual_commands.h"
#include "app/replace_tool.h"
#include "ui/dialogs/about_dialog.h"
#include "ui/dialogs/closing_dialog.h"
#include "ui/dialogs/dst_dialog.h"
#include "ui/dialogs/filter_dialog.h"
#include "ui/dialogs/history_dialog.h"
#include "ui/dialogs/manual_pages.h"
#include "ui/dialogs/password_dialog.h"
#include "ui/dialogs/plan_dialog.h"
#include "ui/dialogs/replace_dialog.h"
#include "ui/dialogs/result_dialog.h"
#include "ui/dialogs/schedule_dialog.h"
#include "ui/dialogs/settings_sheet.h"
#include "ui/dialogs/target_dialog.h"
#include "ui/dialogs/task_dialog.h"
#include "ui/framework/disabled_windows.h"
#include "ui/framework/file_dialogs.h"
#include "ui/framework/help.h"

namespace qlm {
namespace {

constexpr DWORD kOpenFile = OFN_EXPLORER | OFN_ENABLESIZING | OFN_FILEMUSTEXIST;
constexpr DWORD kSaveFile = OFN_EXPLORER | OFN_ENABLESIZING | OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY;
constexpr DWORD kOpenFilter = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
// Without a question whether to replace the file, because its rules are kept.
constexpr DWORD kSaveFilter = OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
static_assert(kOpenFile == 0x881000 && kSaveFile == 0x880006);

DWORD FlagsOf(FileDialog dialog) {
  switch (dialog) {
    case FileDialog::OpenFile: return kOpenFile;
    case FileDialog::SaveFile: return kSaveFile;
    case FileDialog::SaveFilter: return kSaveFilter;
    default: return kOpenFilter;
  }
}

my::CFileDialogParams ParamsOf(const CFileQuestion& question) {
  my::CFileDialogParams params;
  for (const CFileKind& kind : question.kinds) params.kinds.push_back({kind.label, kind.pattern});
  params.defaultExtension = question.defaultExtension;
  params.initialPath = question.initialPath;
  params.flags = FlagsOf(question.dialog);
  return params;
}

}  // namespace

CDialogs::CDialogs(my::CAutoMessageLoop& loop) : m_loop(loop) {}

CDialogs::~CDialogs() {
  my::SetHelpHandler({});
}

void CDialogs::SetOwner(HWND owner, CAppContext& context) {
  m_owner = owner;
  m_context = &context;
  context.document.AddListener([this](DocChangeEventFlags what) {
    if (m_plan) m_plan->OnDocumentChanged(what);
  });
  my::SetHelpHandler([&context](UINT templateId) {
    const auto page = ManualPage(templateId);
    if (page) CCommandManual(context, *page).Execute(true);
    return page.has_value();
  });
}

std::optional<std::wstring> CDialogs::AskPath(const CFileQuestion& question) {
  const my::CFileDialogParams params = ParamsOf(question);
  const bool saves = question.dialog == FileDialog::SaveFile || question.dialog == FileDialog::SaveFilter;
  if (saves) return my::AskSavePath(Owner(), params);
  return my::AskOpenPath(Owner(), params);
}

bool CDialogs::AskPassword(CPasswordEntry& entry) {
  return CPasswordDlg(*m_context, entry).DoModal(Owner()) == IDOK;
}

void CDialogs::ShowSettings(bool designPage) {
  CSettingsSheet(*m_context, designPage ? 1 : 0, m_preview).DoModal(Owner());
}

void CDialogs::OpenReplace() {
  m_replace = std::make_unique<CReplaceDialog>(*m_context);
  m_replace->CreateModeless(m_owner, m_loop);
}

void CDialogs::FocusReplace() {
  ::SetForegroundWindow(m_replace->Hwnd());
}

void CDialogs::CancelReplace() {
  ::SendMessageW(m_replace->Hwnd(), WM_COMMAND, IDCANCEL, 0);
}

void CDialogs::RefreshReplace() {
  if (m_replace) m_replace->Refresh();
}

void CDialogs::EditTask(const CTask& task, const std::function<void(const CTask&)>& confirm) {
  CTaskDialog(*m_context, task, confirm).DoModal(Owner());
}

void CDialogs::EditDst(const CDst& dst, const std::function<void(const CDst&)>& confirm) {
  CDstDialog(*m_context, dst, confirm).DoModal(Owner());
}

void CDialogs::ShowResults(const CResultListModel& results) {
  if (!m_results) m_results = std::make_unique<CResultDialog>(*m_context, results);
  if (m_results->Hwnd())
    ::SetForegroundWindow(m_results->Hwnd());
  else
    m_results->CreateModeless(m_owner, m_loop);
}

void CDialogs::RefreshResults(size_t first) {
  if (m_results) m_results->RowsChanged(first);
}

void CDialogs::OpenHistory(const std::function<void()>& reload) {
  if (!m_history) m_history = std::make_unique<CHistoryDialog>(*m_context, m_historySetting, reload);
  if (IsHistoryOpen())
    ::SetForegroundWindow(m_history->Hwnd());
  else
    m_history->CreateModeless(m_owner, m_loop);
}

bool CDialogs::IsHistoryOpen() const {
  return m_history && m_history->Hwnd();
}

void CDialogs::ShowHistory(std::shared_ptr<const CLoadedHistory> loaded) {
  if (IsHistoryOpen()) m_history->Show(std::move(loaded));
}

void CDialogs::ShowPlan(CPlanRequest request, const std::vector<std::wstring>& ids) {
  if (!m_plan) m_plan = std::make_unique<CPlanDialog>(*m_context, m_planSetting);
  m_plan->Start(std::move(request), ids);
  if (m_plan->Hwnd())
    ::SetForegroundWindow(m_plan->Hwnd());
  else
    m_plan->CreateModeless(m_owner, m_loop);
}

void CDialogs::ShowTargets(const CResultPtr& row) {
  CTargetDialog(*m_context, row).DoModal(Owner());
}

void CDialogs::ShowFilter(const std::wstring& filterPath, const std::wstring& sourcePath) {
  CFilterDialog(*m_context, filterPath, sourcePath).DoModal(Owner());
}

void CDialogs::ShowAbout() {
  CAboutDialog(*m_context).DoModal(Owner());
}

void CDialogs::ShowSchedules(bool all) {
  CScheduleDialog(*m_context, m_scheduleSetting, all).DoModal(Owner());
}

void CDialogs::OpenClosing() {
  m_disabled = std::make_unique<my::CDisabledWindows>(nullptr);
  auto dialog = std::make_unique<CClosingDialog>();
  dialog->CreateModeless(m_owner, m_loop);
  m_closing = std::move(dialog);
}

void CDialogs::ShowClosing(const std::wstring& text, const std::wstring& path) {
  if (m_closing) m_closing->Show(text, path);
}

void CDialogs::RememberOpen() {
  if (m_replace) m_replace->Remember();
  if (m_results) m_results->Remember();
}

HWND CDialogs::Owner() const {
  const HWND active = ::GetActiveWindow();
  return active ? active : m_owner;
}

}  // namespace qlm
