// The program without its windows: run, replace tool and commands over the settings and the document, and
// what happens to them when a window is told something. GUI thread only.
#pragma once

#include <exception>
#include <string>

#include "app/command.h"
#include "app/command_table.h"
#include "app/edit_table.h"
#include "app/messenger.h"
#include "app/replace_tool.h"
#include "app/session_end.h"
#include "document/document.h"
#include "engine/backup_thread.h"
#include "settings/settings.h"

namespace qlm {

class CApplication : private IRunObserver {
 public:
  // All of it outlives the application. `commandLine` is the process's whole command line.
  CApplication(const CAppPorts& ports, CSettings& settings, CDocument& document, my::IMessageBox& box,
               IMainWindow& window, IDialogs& dialogs, std::wstring commandLine);
  CApplication(const CApplication&) = delete;
  CApplication& operator=(const CApplication&) = delete;
  ~CApplication() override;

  CAppContext& Context() { return m_context; }
  CDocument& Document() { return m_document; }
  CSettings& Settings() { return m_settings; }
  const CBackupThread& Run() const { return m_run; }
  CReplaceTool& Replace() { return m_replace; }

  // To be called once, when the main window has been created.
  void Start();

  // Runs the command of an id (ID_...) and shows its failure. Does nothing while IsClosing.
  void Execute(uint32_t id);

  // Whether the command could run now. False for an id without a command.
  bool IsEnabled(uint32_t id);

  // The same for a command with arguments.
  void Execute(CCommand& command);
  bool IsEnabled(CCommand& command) const;

  // Shows what was thrown outside of the commands.
  void ShowFailure(const std::exception_ptr& failure) const;

  void OnTimer() { m_run.Tick(); }

  // The user closes the main window. Returns whether it may be destroyed now. If not, and IsClosing, the run
  // has been told to stop, and IMainWindow::PostClose follows once it has ended.
  bool OnClose();

  // Whether the program only waits for the run to end before it ends itself. Every command is refused.
  bool IsClosing() const { return m_closing; }

  // The system asks whether the session may end. Shows no message box: the system waits for a few seconds
  // only.
  bool OnQueryEndSession();

  // The session ends now or, without `ends`, goes on.
  void OnEndSession(bool ends);

 private:
  void OnResults(size_t firstRow, const CResults& rows) override;
  void OnStatus() override;
  void OnStateChanged() override;
  void OnPowerOff() override;

  // Calls `use` with the command of an id. Returns false if there is none.
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
  uint32_t m_holdReason = 0;  // the text that the system has been told
  bool m_closing = false;
};

}  // namespace qlm
