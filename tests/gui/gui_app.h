// The whole program with its real windows in the test process, and a script that plays the user.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/application.h"
#include "command_ids.h"
#include "control_ids.h"
#include "document/document_edits.h"
#include "gui/gui.h"
#include "gui/win32_ports.h"
#include "platform/win32/win32_threads.h"
#include "text_ids.h"
#include "ui/framework/failures.h"
#include "ui/main_window/document_clipboard.h"
#include "ui/main_window/main_frame.h"
#include "wine/scratch_folder.h"

namespace test {

// Records questions and answers them from a queue; without an answer it cancels.
struct CScriptedBox : my::IMessageBox {
  my::BoxButton Show(const std::wstring& text, const std::wstring&, my::BoxStyle style) override {
    texts.push_back(text);
    if (style == my::BoxStyle::Failure || answers.empty()) return my::BoxButton::Cancel;
    const bool ok = answers.front();
    answers.pop_front();
    return ok ? my::BoxButton::Ok : my::BoxButton::Cancel;
  }

  std::deque<bool> answers;
  std::vector<std::wstring> texts;
};

struct CScratchFolders : my::CWin32KnownFolders {
  explicit CScratchFolders(std::wstring folder) : m_folder(std::move(folder)) {}
  std::wstring RoamingAppData() const override { return m_folder; }

 private:
  std::wstring m_folder;
};

class CGuiApp : public CWin32Ports {
 public:
  CGuiApp() { Start(); }
  ~CGuiApp() { my::SetFailureHandler(nullptr); }

  // Restarts the program with the files of the previous run.
  void Start(const std::wstring& documentPath = {}) {
    app.reset();
    settings = qlm::CSettings(clock.TickCount());
    frame.reset();
    document = std::make_unique<qlm::CDocument>();
    frame = std::make_unique<qlm::CMainFrame>(loop, SW_SHOW);
    app = std::make_unique<qlm::CApplication>(With(*engineFiles, *worker, folders, clipboard), settings,
                                              *document, box, *frame, frame->Dialogs(),
                                              L"q.exe \"" + documentPath + L"\"");
    my::SetFailureHandler([this](std::exception_ptr failure) { app->ShowFailure(failure); });
    frame->Create(*app);
    clipboard.SetOwner(frame->Hwnd());
    Pump();
  }

  // Closes the window and discards edits.
  void Quit() {
    box.answers = {true, true};
    ::SendMessageW(frame->Hwnd(), WM_CLOSE, 0, 0);
    Pump();  // handles the message that ends the loop
  }

  void Do(int id) {
    ::SendMessageW(frame->Hwnd(), WM_COMMAND, static_cast<WPARAM>(id), 0);
    Pump();
  }

  // Executes a command that opens a modal dialog, and calls `user` with the dialog, which it must close.
  void DoWithDialog(int id, std::function<void(HWND)> user) {
    DoWithDialog([this, id] { Do(id); }, std::move(user));
  }
  void DoWithDialog(const std::function<void()>& open, std::function<void(HWND)> user) {
    m_user = std::move(user);
    m_patience = 500;
    s_current = this;
    const UINT_PTR timer = ::SetTimer(nullptr, 0, 10, PlayUser);
    open();
    PumpUntil([this] { return !m_user || !app->Run().IsActive(); });
    ::KillTimer(nullptr, timer);
    if (m_user) ADD_FAILURE() << "no dialog";
  }

  void RunToEnd() {
    Do(ID_RUN);
    PumpUntil([this] { return !app->Run().IsActive(); });
    Pump();
  }

  HWND List(int id) const {
    const HWND splitter = ::GetDlgItem(frame->Hwnd(), IDC_SPLITTER);
    const int pane = id == IDC_TASK_LIST ? IDC_TASK_PANE : IDC_DST_PANE;
    return ::GetDlgItem(::GetDlgItem(splitter, pane), id);
  }

  HWND StatusBar() const { return ::GetDlgItem(frame->Hwnd(), IDC_STATUS_BAR); }

  std::wstring Cell(int list, int row, int column) const { return CellOf(List(list), row, column); }

  void Select(int list, const std::vector<int>& rows) {
    ListView_SetItemState(List(list), -1, 0, LVIS_SELECTED);
    for (const int row : rows) FocusRow(List(list), row);
    ::SetFocus(List(list));
    Pump();
  }

  void AddTask(const std::wstring& id, const std::wstring& path) {
    InsertTask(app->Document(), -1, {id, path, L"", {}});
  }

  void AddDst(const std::wstring& folder, qlm::DstType type = qlm::DstType::FOLDER) {
    InsertDst(app->Document(), -1, {folder, type, L"<ID>_<Y>"});
  }

  // Adds a task with this source, and a destination that it uses.
  void AddBackup(const std::wstring& id, const std::wstring& source, const std::wstring& folder,
                 qlm::DstType type = qlm::DstType::FOLDER) {
    AddDst(folder, type);
    AddTask(id, source);
    SetUse(app->Document(), {0}, 0, true);
  }

  CScratchFolder scratch;
  my::IFileSystem* engineFiles = &scratch.real;  // used by the next start
  my::CWin32Threads threads;
  my::IThreads* worker = &threads;  // used by the next start
  CScratchFolders folders{scratch.path};
  qlm::CDocumentClipboard clipboard;
  CScriptedBox box;
  my::CAutoMessageLoop loop;
  qlm::CSettings settings{0};
  std::unique_ptr<qlm::CDocument> document;
  std::unique_ptr<qlm::CMainFrame> frame;
  std::unique_ptr<qlm::CApplication> app;

 private:
  static void CALLBACK PlayUser(HWND, UINT, UINT_PTR, DWORD) {
    CGuiApp& self = *s_current;
    const HWND active = ::GetActiveWindow();
    if (!active || active == self.frame->Hwnd() || !::IsWindowVisible(active)) return;
    if (--self.m_patience == 0) {
      ADD_FAILURE() << "a dialog that does not close";
      ::EndDialog(active, IDCANCEL);
    }
    if (!self.m_user) return;
    const auto user = std::exchange(self.m_user, nullptr);
    user(active);
  }

  inline static CGuiApp* s_current = nullptr;
  std::function<void(HWND)> m_user;
  int m_patience = 0;  // how often `user` is called again for a dialog that is still open
};

}  // namespace test
