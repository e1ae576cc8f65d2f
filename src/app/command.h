// The commands of menus, buttons and keys. GUI thread only.
#pragma once

#include "engine/backup_task.h"
#include "support/exception.h"

namespace my {
class CMsg;
class IHash;
class IKnownFolders;
class IPower;
class IShell;
class ITaskScheduler;
class IThreads;
class IXmlDom;
}  // namespace my

namespace qlm {

class CBackupThread;
class CDocument;
class CReplaceTool;
class CSessionEnd;
class IClipboard;
class IDialogs;
class IListState;
class IMainWindow;
struct CSettings;

struct CAppPorts {
  CEnginePorts engine;
  my::IXmlDom& dom;
  my::IThreads& threads;
  const my::IKnownFolders& folders;
  my::IPower& power;
  const my::IHash& hash;
  my::IShell& shell;
  my::ITaskScheduler& scheduler;
  IClipboard& clipboard;
};

// The objects that the commands use; all must outlive them.
struct CAppContext {
  CAppPorts ports;
  my::CMsg& messenger;
  CSettings& settings;
  CDocument& document;
  CBackupThread& run;
  CReplaceTool& replace;
  CSessionEnd& session;
  IMainWindow& window;
  IDialogs& dialogs;
};

class CCommand {
 public:
  explicit CCommand(CAppContext& context) : m_context(context) {}

  // Checks the preconditions and, if `run` is true, acts. With `run` false nothing is changed and the user is
  // not asked. Throws the reason for a refusal.
  virtual void Execute(bool run) = 0;

 protected:
  ~CCommand() = default;

  CAppContext& m_context;
};

// A failure that moves the focus to the list in which the user has to act.
class CListException : public my::CCtrlException {
 public:
  CListException(uint32_t id, IListState& list) : CCtrlException(id), m_list(list) {}
  IListState& List() const { return m_list; }

 private:
  IListState& m_list;
};

// Executes a command and shows its exception. If `rethrow` is set, then throws the same error as a
// my::CCtrlException.
void RunCommand(CAppContext& context, CCommand& command, bool run, bool rethrow);

// Shows the current exception and returns it in a form that can be thrown. For use in a catch block.
my::CCtrlException ShowCurrentFailure(const CAppContext& context);

// Preconditions of several commands.
void RefuseDuringRun(const CAppContext& context);      // throws IDS_REFUSED_DURING_RUN
void RefuseDuringReplace(const CAppContext& context);  // throws IDS_REFUSED_DURING_REPLACE

}  // namespace qlm
