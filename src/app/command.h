// Commands: what stands behind every menu item and button. GUI thread only.
#pragma once

#include "engine/backup_task.h"
#include "support/exception.h"

namespace my {
class CMsg;
class IHash;
class IKnownFolders;
class IPower;
class IShell;
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
  IClipboard& clipboard;
};

// What the commands work on; all of it outlives them.
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

  // Checks what must hold and, with `run`, acts. Without it nothing changes and nobody is asked. Throws what
  // it refuses with.
  virtual void Execute(bool run) = 0;

 protected:
  ~CCommand() = default;

  CAppContext& m_context;
};

// A failure that moves the keyboard to the list that the user has to do something in.
class CListException : public my::CCtrlException {
 public:
  CListException(uint32_t id, IListState& list) : CCtrlException(id), m_list(list) {}
  IListState& List() const { return m_list; }

 private:
  IListState& m_list;
};

// Executes a command; whatever it throws is shown. Then, with `rethrow`, a my::CCtrlException of the same
// error is thrown.
void RunCommand(CAppContext& context, CCommand& command, bool run, bool rethrow);

// Shows the exception that is being handled, and answers it as one that may be thrown on. To be called from a
// catch block.
my::CCtrlException ShowCurrentFailure(const CAppContext& context);

// Refusals that several commands share.
void RefuseDuringRun(const CAppContext& context);      // throws IDS_REFUSED_DURING_RUN
void RefuseDuringReplace(const CAppContext& context);  // throws IDS_REFUSED_DURING_REPLACE

}  // namespace qlm
