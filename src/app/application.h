// The program without its windows: run, replace tool and commands for the settings and the document, and the
// handling of window events. GUI thread only.
#pragma once

#include <exception>
#include <string>

#include "app/command.h"
#include "app/command_table.h"
#include "app/edit_table.h"
#include "app/messenger.h"
#include "app/replace_tool.h"
#include "app/run_record.h"
#include "app/session_end.h"
#include "document/document.h"
#include "engine/backup_thread.h"
#include "settings/settings.h"

namespace qlm {

class CApplication : private IRunObserver {
 public:
  // All arguments must outlive the application. `commandLine` is the whole command line of the process.
  CApplication(const CAppPorts& ports, CSettings& settings, CDocument& document, my::IMessageBox& box,
               IMainWindow& window, IDialogs& dialogs, const std::wstring& commandLine);
  CApplication(const CApplication&) = delete;
  CApplication& operator=(const CApplication&) = delete;
  ~CApplication() override;

  CAppContext& Context() { return m_context; }
  CDocument& Document() { return m_document; }
  CSettings& Settings() { return m_settings; }
  const CBackupThread& Run() const { return m_run; }
  CReplaceTool& Replace() { return m_replace; }

  // Returns why the last run is missing in the history; empty if it is not.
  const std::wstring& HistoryFailure() const { return m_record.Failure(); }

  // Must be called once, when the main window has been created.
  void Start();

  // Runs the command with this id (ID_...) and shows its failure. Does nothing while IsClosing() is true.
  void Execute(uint32_t id);

  // Returns whether the command could run now; false if the id has no command.
  bool IsEnabled(uint32_t id);

  // Runs a command with arguments in the same way.
  void Execute(CCommand& command);
  bool IsEnabled(CCommand& command) const;

  // Shows an exception thrown outside of commands.
  void ShowFailure(const std::exception_ptr& failure) const;

  void OnTimer();

  // Handles closing the main window. Returns whether it may be destroyed now. If not, and IsClosing is true,
  // the run is being stopped, and IMainWindow::PostClose follows when it has ended.
  bool OnClose();

  // Returns whether the program only waits for the end of the run to exit. All commands are refused then.
  bool IsClosing() const { return m_closing; }

  // Returns whether the session may end. Shows no message box, because the system waits only for a few
  // seconds.
  bool OnQueryEndSession();

  // Handles the decision of the system: the session ends (`ends`) or continues.
  void OnEndSession(bool ends);

 private:
  void OnResults(size_t firstRow, const CResults& rows) override;
  void OnStatus() override;
  void OnStateChanged() override;
  void OnEnded() override;
  void OnPowerOff() override;

  // Calls `use` with the command of this id. Returns false if there is none.
  template <class TUse>
  bool WithCommand(uint32_t id, TUse use);

  void OnDocumentChanged();
  void UpdateHold();

  CSettings& m_settings;
  CDocument& m_document;
  CMsg m_messenger;
  CBackupThread m_run;
  CReplaceTool m_replace;
  CSessionEnd m_session;
  CAppContext m_context;
  CCommandTable m_table;
  CEditTable m_edits;
  uint32_t m_holdReason = 0;  // id of the reason currently shown by the system
  CRunRecord m_record;
  bool m_recordIsLate = false;  // it was still being written when the run ended
  bool m_closing = false;
};

}  // namespace qlm
