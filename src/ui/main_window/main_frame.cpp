#include "ui/main_window/main_frame.h"

#include <utility>

#include "app/application.h"
#include "app/drop_command.h"
#include "app/schedule_commands.h"
#include "command_ids.h"
#include "control_ids.h"
#include "platform/message_texts.h"
#include "text_ids.h"
#include "ui/framework/dpi.h"
#include "ui/framework/dropped_files.h"
#include "ui/framework/local_menu.h"
#include "ui/framework/window_placement.h"
#include "ui/main_window/main_menu.h"
#include "ui/models/main_title.h"

namespace qlm {
namespace {

constexpr UINT_PTR kRunTimer = 1;
constexpr UINT_PTR kScheduleTimer = 3;
constexpr UINT_PTR kPaintedTimer = 4;
constexpr UINT kScheduleDelayMs = 3000;       // the start must not wait for the Task Scheduler
constexpr UINT kRunEnded = WM_APP + 1;        // posted, so that no dialog opens within a tick
constexpr UINT kFocusLost = WM_APP + 2;       // posted, because a button may be enabled again at once
constexpr UINT kHistoryLoaded = WM_APP + 20;  // posted by the thread that reads the history

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

}  // namespace

CMainFrame::CParts::CParts(CApplication& application, CDialogs& dialogs, HACCEL keys)
    : view(application.Document(), application.Settings().ui, TextsOf(application)),
      toolBar(TextsOf(application)),
      panel(TextsOf(application), application.Settings().ui),
      run(application, view, toolBar, statusBar, panel, dialogs),
      history(application, view, dialogs),
      help(application, view, keys),
      advice(application.Context(), view) {}

CMainFrame::CMainFrame(my::CAutoMessageLoop& loop, int showCommand)
    : m_loop(loop),
      m_showCommand(showCommand),
      m_taskList(ListKind::Tasks),
      m_dstList(ListKind::Dsts),
      m_dialogs(loop) {}

bool CMainFrame::Create(CApplication& application) {
  m_app = &application;
  try {
    my::CWindowParams params;
    params.title = TextsOf(application).Text(IDS_DISPLAY_NAME);
    params.style = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;
    params.exStyle = WS_EX_ACCEPTFILES;
    params.menu = my::LoadLocalMenu(IDR_MAIN_MENU);
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
  m_keys =
      my::CAccelerators(::LoadAcceleratorsW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_MAIN_KEYS)));
  const UINT dpi = my::WindowDpi(Hwnd());
  const SIZE size{my::Scale(kDefault.cx, dpi), my::Scale(kDefault.cy, dpi)};
  my::PlaceWindow(Hwnd(), my::DefaultBounds(Hwnd(), size));
  CreateParts();
  m_translation = m_loop.AddAccelerators(Hwnd(), m_keys.Get());
  UseImages(dpi);
  Arrange();
  m_app->Document().AddListener([this](DocChangeEventFlags what) { OnDocumentChanged(what); });
  m_app->Start();
  m_parts->view.Show();
  ::SetTimer(Hwnd(), kScheduleTimer, kScheduleDelayMs, nullptr);
  RunWhenPainted([this] { m_parts->history.Begin(Hwnd(), kHistoryLoaded); });
}

void CMainFrame::CreateParts() {
  m_parts = std::make_unique<CParts>(*m_app, m_dialogs, m_keys.Get());
  m_parts->toolBar.CreateIn(Hwnd());
  m_parts->view.CreateIn(Hwnd());
  ::ShowWindow(m_parts->view.Hwnd(), SW_HIDE);  // until the first document is open, so that it is drawn once
  m_parts->panel.CreateIn(Hwnd());
  m_parts->panel.onShown = [this] { Arrange(); };
  m_parts->statusBar.CreateIn(Hwnd());
  for (const auto& [list, kind] :
       {std::pair(&m_taskList, ListKind::Tasks), std::pair(&m_dstList, ListKind::Dsts)}) {
    list->Attach(m_parts->view, [this, kind = kind] { OnSelectionChanged(kind); });
    ListenToList(kind);
  }
}

void CMainFrame::ListenToList(ListKind kind) {
  CMainView& view = m_parts->view;
  const bool tasks = kind == ListKind::Tasks;
  my::CListEvents& events = (tasks ? view.Tasks() : view.Dsts()).List().Events();
  events.activate = [this, tasks](size_t) { OnCommand(tasks ? ID_TASK_EDIT : ID_DST_EDIT); };
  events.selectionChanged = [this, kind] { OnSelectionChanged(kind); };
  events.focusChanged = [this] { OnFocusChanged(); };
  events.contextMenu = [this, tasks](POINT screen) {
    if (tasks)
      TrackMenu(Hwnd(), IDR_TASK_MENU, ID_TASK_EDIT, screen);
    else
      TrackMenu(Hwnd(), IDR_DST_MENU, ID_DST_EDIT, screen);
  };
  events.canDrag = [this, kind] {
    CCommandMoveRows move(m_app->Context(), kind, 0);
    return m_app->IsEnabled(move);
  };
  events.drop = [this, kind](size_t before) {
    CCommandMoveRows move(m_app->Context(), kind, before);
    m_app->Execute(move);
  };
  if (tasks) return;
  events.check = [this](size_t row) {
    CCommandToggleUse toggle(m_app->Context(), row);
    m_app->Execute(toggle);
  };
}

LRESULT CMainFrame::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CREATE: OnCreate(); return 0;
    case WM_SIZE: Arrange(); return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE)
        RememberFocus(::GetFocus());
      else if (m_parts)
        m_parts->run.RemoveNotice();
      break;
    case WM_SETFOCUS: RestoreFocus(); return 0;
    case WM_COMMAND: OnCommand(LOWORD(wParam)); return 0;
    case WM_INITMENUPOPUP:
      // The items of the system menu, and the close button with them, are enabled by the system.
      if (HIWORD(lParam) != 0) return CWindow::OnMessage(message, wParam, lParam);
      OnMenu(reinterpret_cast<HMENU>(wParam));
      return 0;
    case WM_MENUSELECT: OnMenuSelect(LOWORD(wParam), HIWORD(wParam)); return 0;
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(lParam)->code != TBN_GETINFOTIPW) break;
      m_parts->help.ShowTip(*reinterpret_cast<NMTBGETINFOTIPW*>(lParam));
      return 0;
    case WM_DROPFILES: OnDrop(reinterpret_cast<HDROP>(wParam)); return 0;
    case WM_DPICHANGED: OnDpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam)); return 0;
    case WM_GETMINMAXINFO: LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam)); return 0;
    case WM_TIMER:
      if (wParam == kRunTimer) m_app->OnTimer();
      if (wParam == CAdvicePresenter::kTimer) m_parts->advice.OnTimer(Hwnd());
      if (wParam == kScheduleTimer) CheckSchedules();
      if (wParam == kPaintedTimer) RunPostponed();
      return 0;
    case kRunEnded: m_parts->run.OpenOutcome(Hwnd()); return 0;
    case CRunPresenter::kNoticeMessage: m_parts->run.OnNotice(Hwnd(), lParam); return 0;
    case kHistoryLoaded: m_parts->history.OnLoaded(); return 0;
    case kFocusLost: OnFocusLost(); return 0;
    case WM_CLOSE: OnClose(); return 0;
    case WM_SYSCOLORCHANGE: my::SendToDescendants(Hwnd(), message, 0); [[fallthrough]];
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED: OnSystemChanged(); return CWindow::OnMessage(message, wParam, lParam);
    case WM_QUERYENDSESSION: return m_app->OnQueryEndSession();
    case WM_ENDSESSION: m_app->OnEndSession(wParam != 0); return 0;
    case WM_DESTROY:
      if (m_parts) m_parts->run.RemoveNotice();
      ::PostQuitMessage(0);
      return 0;
    default: break;
  }
  return CWindow::OnMessage(message, wParam, lParam);
}

void CMainFrame::RememberFocus(HWND focus) {
  m_focus.Remember(focus);
  if (m_parts) m_parts->view.Current();  // remembers the list, too
}

// Returns the focus to the control that had it, such as a button that opened a dialog.
void CMainFrame::RestoreFocus() {
  if (!m_focus.Restore(Hwnd()) && m_parts) m_parts->view.Current().SetFocus();
}

// Keys sent to a disabled control would be lost.
void CMainFrame::OnFocusLost() {
  const HWND focus = ::GetFocus();
  if (::GetActiveWindow() == Hwnd() && (!focus || !::IsWindowEnabled(focus))) RestoreFocus();
}

void CMainFrame::OnDpiChanged(UINT dpi, const RECT& suggested) {
  UseDpi(dpi);
  // Not pulled onto the screen, because the bounds of a maximized window exceed it by its frame.
  my::MoveTo(Hwnd(), m_fullScreen.IsOn() ? my::ScreenBounds(Hwnd()) : my::FromRect(suggested));
}

void CMainFrame::LimitSize(MINMAXINFO& limits) const {
  const UINT dpi = m_dpi ? m_dpi : my::kDefaultDpi;
  limits.ptMinTrackSize = {my::Scale(kSmallest.cx, dpi), my::Scale(kSmallest.cy, dpi)};
}

void CMainFrame::OnSystemChanged() {
  if (!m_parts) return;
  m_parts->view.OnSystemChanged();
  UseDpi(m_dpi);  // with the font that the user has set now
}

void CMainFrame::OnCommand(int id) {
  if (m_app->IsClosing()) return;
  m_app->Execute(static_cast<uint32_t>(id));
  if (id == ID_SETTINGS) m_parts->advice.Restart(Hwnd());  // the archiver
  UpdateCommands();
}

bool CMainFrame::IsEnabled(int id) const {
  return m_app->IsEnabled(static_cast<uint32_t>(id));
}

void CMainFrame::OnMenu(HMENU menu) {
  ShowRecent(menu, m_app->Settings().ui.mruPathes.Items(), TextsOf(*m_app).Text(IDS_NO_RECENT));
  m_parts->help.LabelItems(menu);
  ::CheckMenuItem(menu, ID_FULL_SCREEN, MF_BYCOMMAND | (m_fullScreen.IsOn() ? MF_CHECKED : MF_UNCHECKED));
  EnableItems(menu, [this](int id) { return IsEnabled(id); });
  ShowPictures(menu, m_images);
}

void CMainFrame::OnMenuSelect(int id, UINT flags) {
  const bool isItem = (flags & (MF_POPUP | MF_SEPARATOR | MF_SYSMENU)) == 0;
  const std::wstring text = isItem ? m_parts->help.Explanation(id) : std::wstring();
  if (text.empty()) return ShowRunStatus();
  m_parts->statusBar.ShowText(text);
}

void CMainFrame::OnDrop(HDROP drop) {
  my::CDroppedFiles files = my::TakeDrop(Hwnd(), drop);
  // The system also delivers drops to a disabled window.
  if (!::IsWindowEnabled(Hwnd())) return;
  CMainView& view = m_parts->view;
  CDropPlace place;
  place.list = view.Dsts().Covers(files.screen) ? ListKind::Dsts : ListKind::Tasks;
  place.taskRow = view.Tasks().List().RowAt(files.screen);
  place.append = ::GetKeyState(VK_CONTROL) < 0;
  CCommandDrop command(m_app->Context(), std::move(files.paths), place);
  m_app->Execute(command);
}

void CMainFrame::OnDocumentChanged(DocChangeEventFlags what) {
  m_parts->view.OnDocumentChanged(what);
  if (what != DocChangeEventFlags::CHNAGE_PATH) {
    m_parts->run.ShowCounts();
    m_parts->advice.Restart(Hwnd());
  }
  if (Has(what, DocChangeEventFlags::RESET)) m_parts->run.OnNewDocument();
  UpdateTitle();
  UpdateCommands();
}

void CMainFrame::OnSelectionChanged(ListKind kind) {
  if (kind == ListKind::Tasks) m_parts->view.OnTaskSelection();
  m_dialogs.RefreshReplace();
  UpdateCommands();
}

void CMainFrame::OnFocusChanged() {
  m_dialogs.RefreshReplace();
  UpdateCommands();
}

void CMainFrame::UpdateCommands() {
  const HWND focus = ::GetFocus();
  for (const int id : m_parts->toolBar.Ids()) m_parts->toolBar.Enable(id, IsEnabled(id));
  m_parts->view.EnableButtons([this](int id) { return IsEnabled(id); });
  if (!::IsChild(Hwnd(), focus) || ::IsWindowEnabled(focus)) return;
  m_focus.Remember(focus);
  ::PostMessageW(Hwnd(), kFocusLost, 0, 0);
}

void CMainFrame::RedrawLists() {
  m_parts->view.Redraw();
  UpdateCommands();
}

void CMainFrame::ApplySettings(const CSettings& settings) {
  const CMainFrameSetting& frame = settings.mainFrame;
  if (frame.normalBounds != my::CRect{}) my::PlaceWindow(Hwnd(), frame.normalBounds);
  ::ShowWindow(Hwnd(), frame.maximized ? SW_SHOWMAXIMIZED : m_showCommand);
  if (frame.fullScreen) ToggleFullScreen();
  m_parts->view.ApplySettings(frame);  // the height of a list belongs to the size that the window has now
  m_parts->view.Current().SetFocus();
  try {
    m_parts->view.ShowDesign(settings.design);
  } catch (const my::CException& failure) {
    // The picture may be on a disconnected drive; the program continues without it.
    m_app->Context().messenger.ShowError(failure);
  }
}

void CMainFrame::StoreSettings(CSettings& settings) {
  CMainFrameSetting& frame = settings.mainFrame;
  frame.fullScreen = m_fullScreen.IsOn();
  const my::CPlacement placement = m_fullScreen.Placement(Hwnd());
  frame.maximized = placement.maximized;
  frame.normalBounds = placement.rect;
  m_parts->view.StoreSettings(frame);
  m_dialogs.RememberOpen();
}

void CMainFrame::UpdateTitle() {
  m_titlePercent = m_parts->run.Percent();
  ::SetWindowTextW(Hwnd(), MainTitle(TextsOf(*m_app), m_app->Document(), m_titlePercent).c_str());
}

void CMainFrame::ShowRunStatus() {
  m_parts->run.ShowStatus(Hwnd());
  if (m_parts->run.Percent() != m_titlePercent) UpdateTitle();
}

void CMainFrame::StartTimer(uint32_t periodMs) {
  ::SetTimer(Hwnd(), kRunTimer, periodMs, nullptr);
}

void CMainFrame::StopTimer() {
  ::KillTimer(Hwnd(), kRunTimer);
}

// The system sends a timer message only if nothing is left to paint.
void CMainFrame::RunWhenPainted(const std::function<void()>& work) {
  m_postponed.push_back(work);
  ::SetTimer(Hwnd(), kPaintedTimer, USER_TIMER_MINIMUM, nullptr);
}

void CMainFrame::RunPostponed() {
  ::KillTimer(Hwnd(), kPaintedTimer);
  for (const auto& work : std::exchange(m_postponed, {})) work();
}

// Once after the start, when the user is not in a dialog.
void CMainFrame::CheckSchedules() {
  if (!::IsWindowEnabled(Hwnd()) || m_app->IsClosing()) return;
  ::KillTimer(Hwnd(), kScheduleTimer);
  OfferToMendSchedules(m_app->Context());
}

void CMainFrame::ShowRunState() {
  const bool ended = m_parts->run.ShowState(Hwnd());
  UpdateTitle();
  if (ended) ::PostMessageW(Hwnd(), kRunEnded, 0, 0);
  if (ended) m_parts->advice.Restart(Hwnd());
  if (!m_app->Run().IsActive()) m_parts->history.Load();
  UpdateCommands();
}

// While a modal dialog is open, only another program can send this message. The user's work in the dialog has
// priority.
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
  UseImages(dpi);
  my::BroadcastDpi(Hwnd(), dpi);
  Arrange();
}

void CMainFrame::UseImages(UINT dpi) {
  m_dpi = dpi;
  my::CFont font = my::MessageFont(dpi);
  CToolImages images(my::TextDpi(dpi));
  m_parts->toolBar.Use(font.Get(), images);
  m_parts->statusBar.UseFont(font.Get());
  m_font = std::move(font);  // until here the window uses the old ones
  m_images = std::move(images);
  m_icons.Use(Hwnd(), IDI_QUILLMOOR, dpi);
}

void CMainFrame::Arrange() {
  if (!m_parts || m_dpi == 0) return;
  m_parts->toolBar.Resize();
  m_parts->statusBar.Resize(m_dpi);
  const SIZE client = ClientSize();
  const int top = m_parts->toolBar.Height();
  const int room = std::max<int>(0, client.cy - top - m_parts->statusBar.Height());
  const int panel = m_parts->panel.HeightFor(client.cx, room * 3 / 5);
  const int height = std::max(0, room - panel);
  ::MoveWindow(m_parts->view.Hwnd(), 0, top, client.cx, height, TRUE);
  ::MoveWindow(m_parts->panel.Hwnd(), 0, top + height, client.cx, panel, TRUE);
}

ListKind CMainFrame::CurrentList() {
  return m_parts->view.TasksAreCurrent() ? ListKind::Tasks : ListKind::Dsts;
}

}  // namespace qlm
