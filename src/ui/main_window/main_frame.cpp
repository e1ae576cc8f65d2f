#include "ui/main_window/main_frame.h"

#include "app/application.h"
#include "command_ids.h"
#include "control_ids.h"
#include "platform/message_texts.h"
#include "support/paths.h"
#include "text_ids.h"
#include "ui/framework/dpi.h"
#include "ui/framework/window_placement.h"
#include "ui/main_window/main_menu.h"
#include "ui/models/closing_text.h"
#include "ui/models/filter_question.h"

namespace qlm {
namespace {

constexpr UINT_PTR kRunTimer = 1;
constexpr UINT kRunEnded = WM_APP + 1;  // posted, so that dialogs do not open within a tick

// Pixels at 96 DPI.
constexpr SIZE kSmallest{560, 400};
constexpr SIZE kDefault{960, 680};

const my::CWindowClass& FrameClass() {
  static const my::CWindowClass frameClass(L"QuillmoorMainFrame", 0, COLOR_BTNFACE + 1);
  return frameClass;
}

const my::IMessageTexts& TextsOf(CApplication& app) {
  return app.Context().ports.engine.texts;
}

std::wstring CountsText(CApplication& app, size_t errors) {
  std::wstring text;
  if (errors != 0) {
    const my::CMsgArg count = std::to_wstring(errors);
    text = my::MakeText(TextsOf(app), IDS_ERROR_COUNT, {&count, 1}) + L"  ";
  }
  const CDocument& document = app.Document();
  const my::CMsgArg counts[] = {std::to_wstring(document.Tasks().size()),
                                std::to_wstring(document.Dsts().size())};
  return text + my::MakeText(TextsOf(app), IDS_ITEM_COUNTS, counts);
}

// The row of the list under a point of the screen.
std::optional<size_t> RowAt(HWND list, POINT screen) {
  LVHITTESTINFO hit{};
  hit.pt = screen;
  ::ScreenToClient(list, &hit.pt);
  const int row = ListView_HitTest(list, &hit);
  if (row < 0) return {};
  return static_cast<size_t>(row);
}

std::vector<std::wstring> PathsOf(HDROP drop) {
  std::vector<std::wstring> paths(::DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0));
  for (UINT i = 0; i < paths.size(); ++i) {
    paths[i].resize(::DragQueryFileW(drop, i, nullptr, 0) + 1);
    paths[i].resize(::DragQueryFileW(drop, i, paths[i].data(), static_cast<UINT>(paths[i].size())));
  }
  return paths;
}

}  // namespace

CListPane* CMainFrame::CFrameList::Pane() const {
  if (!m_frame.m_parts) return nullptr;
  CMainView& view = m_frame.m_parts->view;
  return m_kind == ListKind::TASKS ? &view.Tasks() : &view.Dsts();
}

IListState* CMainFrame::CFrameList::List() const {
  if (!m_frame.m_parts) return nullptr;
  CMainView& view = m_frame.m_parts->view;
  if (m_kind == ListKind::TASKS) return &view.TaskList();
  return &view.DstList();
}

std::optional<size_t> CMainFrame::CFrameList::FocusedRow() const {
  return List() ? List()->FocusedRow() : std::nullopt;
}

std::vector<size_t> CMainFrame::CFrameList::SelectedRows() const {
  return List() ? List()->SelectedRows() : std::vector<size_t>();
}

bool CMainFrame::CFrameList::AnySelected() const {
  return Pane() && ListView_GetNextItem(Pane()->List().Hwnd(), -1, LVNI_SELECTED) >= 0;
}

void CMainFrame::CFrameList::Focus() {
  if (Pane()) Pane()->SetFocus();
}

void CMainFrame::CFrameList::Select(const CRows& rows) {
  my::CListView& list = Pane()->List();
  list.Select(rows);
  if (!rows.empty()) {
    list.SetFocused(rows.front());
    list.EnsureVisible(rows.front());
  }
  m_frame.OnSelectionChanged(m_kind);
}

CMainFrame::CParts::CParts(CApplication& application, CMainFrame& frame)
    : view(application.Document(), application.Settings().ui, TextsOf(application)),
      toolBar(TextsOf(application)),
      results(application.Settings().ui, TextsOf(application), application.Context().ports.engine.clock),
      edits(application.Context(), frame.m_taskList, frame.m_dstList, frame.m_dialogs, frame.m_dialogs),
      indicator(application.Context().ports.power) {}

CMainFrame::CMainFrame(my::CAutoMessageLoop& loop, int showCommand)
    : m_loop(loop),
      m_showCommand(showCommand),
      m_taskList(*this, ListKind::TASKS),
      m_dstList(*this, ListKind::DSTS),
      m_dialogs(loop) {}

bool CMainFrame::Create(CApplication& application) {
  m_app = &application;
  try {
    my::CWindowParams params;
    params.title = TextsOf(application).Text(IDS_DISPLAY_NAME);
    params.style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    params.exStyle = WS_EX_ACCEPTFILES;
    params.menu = ::LoadMenuW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_MAIN_MENU));
    CWindow::Create(FrameClass(), params);
    return true;
  } catch (...) {
    application.ShowFailure(std::current_exception());
    return false;
  }
}

void CMainFrame::OnCreate() {
  m_dialogs.SetOwner(Hwnd(), m_app->Context());
  m_dialogs.SetPreview([this](const CDesignSetting& design) { m_parts->view.ShowDesign(design); });
  m_parts = std::make_unique<CParts>(*m_app, *this);
  m_parts->toolBar.CreateIn(Hwnd());
  m_parts->view.CreateIn(Hwnd());
  m_parts->statusBar.CreateIn(Hwnd());
  ListenToList(ListKind::TASKS);
  ListenToList(ListKind::DSTS);
  m_keys =
      my::CAccelerators(::LoadAcceleratorsW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_MAIN_KEYS)));
  m_translation = m_loop.AddAccelerators(Hwnd(), m_keys.Get());
  UseDpi(my::WindowDpi(Hwnd()));
  const int width = my::Scale(kDefault.cx, m_dpi);
  const int height = my::Scale(kDefault.cy, m_dpi);
  my::PlaceWindow(Hwnd(), my::DefaultBounds(Hwnd(), {width, height}));
  m_app->Document().AddListener([this](DocChangeEventFlags what) { OnDocumentChanged(what); });
  m_app->Start();
}

void CMainFrame::ListenToList(ListKind kind) {
  CMainView& view = m_parts->view;
  const bool tasks = kind == ListKind::TASKS;
  my::CListEvents& events = (tasks ? view.Tasks() : view.Dsts()).List().Events();
  events.activate = [this, tasks](size_t) { OnCommand(tasks ? ID_TASK_EDIT : ID_DST_EDIT); };
  events.selectionChanged = [this, kind] { OnSelectionChanged(kind); };
  events.focusChanged = [this] { OnFocusChanged(); };
  events.contextMenu = [this, tasks](POINT screen) {
    TrackMenu(Hwnd(), tasks ? IDR_TASK_MENU : IDR_DST_MENU, screen);
  };
  events.canDrag = [this] { return !m_app->Replace().IsOpen(); };
  events.drop = [this, kind](size_t before) { m_parts->edits.MoveBefore(kind, before); };
  if (!tasks) events.check = [this](size_t row) { m_parts->edits.ToggleUse(row); };
}

LRESULT CMainFrame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE: OnCreate(); return 0;
    case WM_SIZE: Arrange(); return 0;
    case WM_SETFOCUS:
      if (m_parts) m_parts->view.Current().SetFocus();
      return 0;
    case WM_COMMAND: OnCommand(LOWORD(wParam)); return 0;
    case WM_INITMENUPOPUP:
      // The items of the system menu are the system's, and so is the close button that goes with one of them.
      if (HIWORD(lParam) != 0) return CWindow::OnMessage(message, wParam, lParam);
      OnMenu(reinterpret_cast<HMENU>(wParam));
      return 0;
    case WM_MENUSELECT: OnMenuSelect(LOWORD(wParam), HIWORD(wParam)); return 0;
    case WM_DROPFILES: OnDrop(reinterpret_cast<HDROP>(wParam)); return 0;
    case WM_DPICHANGED: {
      const RECT& bounds = *reinterpret_cast<const RECT*>(lParam);
      UseDpi(LOWORD(wParam));
      my::PlaceWindow(Hwnd(), my::FromRect(bounds));
      return 0;
    }
    case WM_GETMINMAXINFO: {
      auto& limits = *reinterpret_cast<MINMAXINFO*>(lParam);
      const UINT dpi = m_dpi ? m_dpi : my::kDefaultDpi;
      limits.ptMinTrackSize = {my::Scale(kSmallest.cx, dpi), my::Scale(kSmallest.cy, dpi)};
      return 0;
    }
    case WM_TIMER:
      if (wParam == kRunTimer) m_app->OnTimer();
      return 0;
    case kRunEnded: OnRunEnded(); return 0;
    case WM_CLOSE: OnClose(); return 0;
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
      if (m_parts) m_parts->view.OnSystemChanged();
      return CWindow::OnMessage(message, wParam, lParam);
    case WM_QUERYENDSESSION: return m_app->OnQueryEndSession();
    case WM_ENDSESSION: m_app->OnEndSession(wParam != 0); return 0;
    case WM_DESTROY: ::PostQuitMessage(0); return 0;
    default: return CWindow::OnMessage(message, wParam, lParam);
  }
}

void CMainFrame::OnCommand(int id) {
  if (m_app->IsClosing()) return;
  const HWND focus = ::GetFocus();
  Execute(id);
  // A button of a pane does its work and gives the keyboard back.
  if (focus == ::GetFocus() && ::GetDlgCtrlID(focus) == id) m_parts->view.Current().SetFocus();
  UpdateCommands();
}

void CMainFrame::Execute(int id) {
  if (const auto edit = EditOf(id, CurrentList())) return m_parts->edits.Do(edit->list, edit->action);
  switch (id) {
    case ID_UNDO: return m_parts->edits.Undo();
    case ID_REDO: return m_parts->edits.Redo();
    case ID_OTHER_PANE: return m_parts->view.FocusOther();
    case ID_FULL_SCREEN: return ToggleFullScreen();
    case ID_RESULTS: return m_dialogs.ShowResults(m_parts->results);
    case ID_FILTER_CHECK: return CheckFilter();
    case ID_ABOUT: return m_dialogs.ShowAbout();
    case ID_QUIT: return PostClose();
    default: break;
  }
  if (!m_app->Execute(static_cast<uint32_t>(id)))
    throw my::CException(IDS_INTERNAL_ERROR, {L"Unknown command: " + std::to_wstring(id)});
}

bool CMainFrame::IsEnabled(int id) const {
  if (m_app->IsClosing()) return false;
  if (const auto edit = EditOf(id, CurrentList())) return m_parts->edits.IsEnabled(edit->list, edit->action);
  switch (id) {
    case ID_UNDO: return m_parts->edits.CanUndo();
    case ID_REDO: return m_parts->edits.CanRedo();
    case ID_FILTER_CHECK:
    case ID_OTHER_PANE:
    case ID_FULL_SCREEN:
    case ID_RESULTS:
    case ID_ABOUT:
    case ID_QUIT: return true;
    default: return m_app->IsEnabled(static_cast<uint32_t>(id));
  }
}

void CMainFrame::OnMenu(HMENU menu) const {
  ShowRecent(menu, m_app->Settings().ui.mruPathes.Items(), TextsOf(*m_app).Text(IDS_NO_RECENT));
  SetItemText(menu, ID_RUN, TextsOf(*m_app).Text(m_app->Run().IsActive() ? IDS_MENU_STOP : IDS_MENU_RUN));
  ::CheckMenuItem(menu, ID_FULL_SCREEN, MF_BYCOMMAND | (m_fullScreen ? MF_CHECKED : MF_UNCHECKED));
  EnableItems(menu, [this](int id) { return IsEnabled(id); });
  ShowPictures(menu, m_images);
}

// A command that has a text of its own in the string table is explained by its first line.
void CMainFrame::OnMenuSelect(int id, UINT flags) {
  const bool isItem = (flags & (MF_POPUP | MF_SEPARATOR | MF_SYSMENU)) == 0;
  const std::wstring text = isItem ? TextsOf(*m_app).Text(static_cast<uint32_t>(id)) : std::wstring();
  if (text.empty()) return ShowRunStatus();
  m_parts->statusBar.ShowText(text.substr(0, text.find(L'\n')));
}

void CMainFrame::OnDrop(HDROP drop) {
  const std::vector<std::wstring> paths = PathsOf(drop);
  POINT at{};
  ::DragQueryPoint(drop, &at);
  ::DragFinish(drop);
  // The system delivers drops to a disabled window, too.
  if (!::IsWindowEnabled(Hwnd())) return;
  ::ClientToScreen(Hwnd(), &at);
  const auto row = RowAt(m_parts->view.Tasks().List().Hwnd(), at);
  m_parts->edits.DropPaths(paths, row, ::GetKeyState(VK_CONTROL) < 0);
}

// The filter of the task that has the focus. If there is none, the user chooses a file.
void CMainFrame::CheckFilter() {
  const CTaskPtr* task = m_parts->view.TaskList().FocusedItem();
  const std::wstring source = task ? (*task)->path : std::wstring();
  if (task && !(*task)->filterPath.empty()) return m_dialogs.ShowFilter((*task)->filterPath, source);
  if (const auto path = m_dialogs.AskOpenPath(FilterQuestion(TextsOf(*m_app), {})))
    m_dialogs.ShowFilter(*path, source);
}

void CMainFrame::OnDocumentChanged(DocChangeEventFlags what) {
  m_parts->view.OnDocumentChanged(what);
  if (what != DocChangeEventFlags::CHNAGE_PATH) ShowCounts();
  UpdateTitle();
  UpdateCommands();
}

void CMainFrame::OnSelectionChanged(ListKind kind) {
  if (kind == ListKind::TASKS) m_parts->view.OnTaskSelection();
  m_dialogs.RefreshReplace();
  UpdateCommands();
}

void CMainFrame::OnFocusChanged() {
  m_dialogs.RefreshReplace();
  UpdateCommands();
}

void CMainFrame::UpdateCommands() const {
  for (const int id : m_parts->toolBar.Ids()) m_parts->toolBar.Enable(id, IsEnabled(id));
  m_parts->view.EnableButtons([this](int id) { return IsEnabled(id); });
}

void CMainFrame::RedrawLists() {
  m_parts->view.Redraw();
  UpdateCommands();
}

void CMainFrame::ApplySettings(const CSettings& settings) {
  const CMainFrameSetting& frame = settings.mainFrame;
  if (frame.normalBounds != my::CRect{}) my::PlaceWindow(Hwnd(), frame.normalBounds);
  m_parts->view.ApplySettings(frame);
  ::ShowWindow(Hwnd(), frame.maximized ? SW_SHOWMAXIMIZED : m_showCommand);
  if (frame.fullScreen) ToggleFullScreen();
  m_parts->view.Current().SetFocus();
  try {
    m_parts->view.ShowDesign(settings.design);
  } catch (const my::CException& failure) {
    // The picture may be on a drive that is away now; the program works without.
    m_app->Context().messenger.ShowError(failure);
  }
}

void CMainFrame::StoreSettings(CSettings& settings) {
  CMainFrameSetting& frame = settings.mainFrame;
  frame.fullScreen = m_fullScreen;
  const my::CPlacement placement =
      m_fullScreen ? my::ReadPlacement(Hwnd(), m_beforeFullScreen) : my::ReadPlacement(Hwnd());
  frame.maximized = placement.maximized;
  frame.normalBounds = placement.rect;
  m_parts->view.StoreSettings(frame);
  m_dialogs.RememberOpen();
}

void CMainFrame::UpdateTitle() {
  const CDocument& document = m_app->Document();
  const my::IMessageTexts& texts = TextsOf(*m_app);
  std::wstring title(my::LastComponent(document.Path()));
  if (title.empty()) title = texts.Text(IDS_UNTITLED);
  if (document.IsModified()) title += L"*";
  ::SetWindowTextW(Hwnd(), title.append(L" - ").append(texts.Text(IDS_DISPLAY_NAME)).c_str());
}

void CMainFrame::StartTimer(uint32_t periodMs) {
  ::SetTimer(Hwnd(), kRunTimer, periodMs, nullptr);
}

void CMainFrame::StopTimer() {
  ::KillTimer(Hwnd(), kRunTimer);
}

void CMainFrame::ClearResults() {
  m_parts->results.Clear();
  m_parts->view.TaskModel().ClearResults();
  m_parts->view.Redraw();
  m_dialogs.RefreshResults();
}

void CMainFrame::ShowResults(size_t firstRow, const CResults& rows) {
  m_parts->results.ShowResults(firstRow, rows);
  m_parts->view.TaskModel().ShowResults(rows);
  m_parts->view.Redraw();
  m_dialogs.RefreshResults();
}

void CMainFrame::ShowRunStatus() {
  const CBackupThread& run = m_app->Run();
  const size_t unlisted = m_parts->results.UnlistedCount();
  const RunHealth health = run.HasErrors() ? RunHealth::Failed
                           : unlisted != 0 ? RunHealth::Incomplete
                                           : RunHealth::Good;
  std::wstring text = run.StatusText();
  if (unlisted != 0) {
    const my::CMsgArg count = std::to_wstring(unlisted);
    text += L"  " + my::MakeText(TextsOf(*m_app), IDS_UNLISTED_COUNT, {&count, 1});
  }
  m_parts->statusBar.ShowRun(text, run.Progress(), health);
  m_parts->indicator.ShowProgress(Hwnd(), run.Progress(), run.HasErrors());
  if (!m_app->IsClosing()) return;
  const CResults& rows = m_parts->results.Rows();
  m_dialogs.ShowClosing(ClosingText(TextsOf(*m_app), rows),
                        rows.empty() ? std::wstring() : rows.back()->destinationPath);
}

void CMainFrame::ShowCounts() const {
  m_parts->statusBar.ShowCounts(CountsText(*m_app, m_parts->results.ErrorCount()));
}

void CMainFrame::ShowRunState() {
  const bool active = m_app->Run().IsActive();
  m_parts->toolBar.Change(ID_RUN, active ? IDS_TOOL_STOP : IDS_TOOL_RUN,
                          active ? ToolIcon::Stop : ToolIcon::Run);
  m_parts->view.ShowRunning(active);
  if (active && !m_runShown) m_parts->indicator.Begin();
  if (!active && m_runShown) {
    m_parts->indicator.End(Hwnd(), m_app->Run().HasErrors());
    ::PostMessageW(Hwnd(), kRunEnded, 0, 0);
  }
  m_runShown = active;
  ShowRunStatus();
  ShowCounts();
  UpdateCommands();
}

// What was asked for is shown, and so is what went wrong.
void CMainFrame::OnRunEnded() {
  if (m_app->Run().IsActive() || m_app->IsClosing()) return;
  const bool listed =
      m_app->Run().IsListOnly() && m_parts->results.RowCount() == 1 && !m_app->Run().HasErrors();
  if (listed && m_app->Run().State() == RunState::ENDED)
    return m_dialogs.ShowTargets(m_parts->results.Shared(0));
  if (m_app->Run().HasErrors()) m_dialogs.ShowResults(m_parts->results);
}

// While a modal dialog is open, only another program can send the message: the work in the dialog goes first.
void CMainFrame::OnClose() {
  if (!::IsWindowEnabled(Hwnd()) && !m_app->IsClosing()) return;
  if (m_app->OnClose()) Destroy();
}

void CMainFrame::ShowClosing() {
  m_dialogs.OpenClosing();
  ShowRunStatus();
  UpdateCommands();
}

void CMainFrame::UseDpi(UINT dpi) {
  m_dpi = dpi;
  my::CFont font = my::MessageFont(dpi);
  CToolImages images(dpi);
  m_parts->toolBar.Use(font.Get(), images);
  m_parts->statusBar.UseFont(font.Get());
  m_font = std::move(font);  // the old ones are in use until here
  m_images = std::move(images);
  ShowIcons();
  my::BroadcastDpi(Hwnd(), dpi);
  Arrange();
}

void CMainFrame::ShowIcons() {
  const auto load = [this](int metric) {
    const int size = my::SystemMetric(metric, m_dpi);
    return my::CIcon(
        static_cast<HICON>(::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_QUILLMOOR),
                                        IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
  };
  my::CIcon small = load(SM_CXSMICON);
  my::CIcon large = load(SM_CXICON);
  ::SendMessageW(Hwnd(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small.Get()));
  ::SendMessageW(Hwnd(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(large.Get()));
  m_smallIcon = std::move(small);  // the old ones are in use until here
  m_largeIcon = std::move(large);
}

void CMainFrame::Arrange() {
  if (!m_parts || m_dpi == 0) return;
  m_parts->toolBar.Resize();
  m_parts->statusBar.Resize(m_dpi);
  const SIZE client = ClientSize();
  const int top = m_parts->toolBar.Height();
  const int height = std::max<int>(0, client.cy - top - m_parts->statusBar.Height());
  ::MoveWindow(m_parts->view.Hwnd(), 0, top, client.cx, height, TRUE);
}

void CMainFrame::ToggleFullScreen() {
  const auto style = static_cast<DWORD>(::GetWindowLongW(Hwnd(), GWL_STYLE));
  if (m_fullScreen) {
    ::SetWindowLongW(Hwnd(), GWL_STYLE, static_cast<LONG>(style | WS_OVERLAPPEDWINDOW));
    ::SetWindowPlacement(Hwnd(), &m_beforeFullScreen);
  } else {
    m_beforeFullScreen.length = sizeof m_beforeFullScreen;
    ::GetWindowPlacement(Hwnd(), &m_beforeFullScreen);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(Hwnd(), MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& screen = monitor.rcMonitor;
    ::SetWindowLongW(Hwnd(), GWL_STYLE, static_cast<LONG>(style & ~DWORD{WS_OVERLAPPEDWINDOW}));
    ::SetWindowPos(Hwnd(), HWND_TOP, screen.left, screen.top, screen.right - screen.left,
                   screen.bottom - screen.top, SWP_FRAMECHANGED);
  }
  m_fullScreen = !m_fullScreen;
}

ListKind CMainFrame::CurrentList() const {
  return m_parts->view.TasksAreCurrent() ? ListKind::TASKS : ListKind::DSTS;
}

}  // namespace qlm
