// The commands at the start and the end of the program.
#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <string>

#include "app/command.h"

namespace qlm {

// Copies the state of the window to the settings and saves them.
class CCommandQuit final : public CCommand {
 public:
  using CCommand::CCommand;

  // A write failure is reported but does not block exit.
  void Execute(bool run) override;

  // Does the same without a message box. Throws what SaveSettings throws.
  void Store();

  // If the user cancels the start, the settings file that could not be read must not be overwritten.
  void SetSkipSave(bool skip) { m_skipSave = skip; }

  // Keeps the stored path of the last document if no document has a path at the end.
  void KeepLastPath() { m_keepLastPath = true; }

 private:
  bool m_skipSave = true;
  bool m_keepLastPath = false;
};

// Loads the settings, and opens the first document or, if a filter file is given, posts CCommandCheckFilter.
// Runs once, when the main window has been created. Closes the window if the user does not want to continue
// without the settings.
class CCommandInit final : public CCommand {
 public:
  // `commandLine` is the whole command line of the process. `quit` may still be null here, but not when the
  // command is executed.
  CCommandInit(CAppContext& context, const boost::shared_ptr<CCommandQuit>& quit, std::wstring commandLine)
      : CCommand(context), m_quit(quit), m_commandLine(std::move(commandLine)) {}

  void Execute(bool run) override;

 private:
  bool LoadSettings();
  bool AskAboutFailure(const std::wstring& path, my::CException failure);
  void FindArchiverIfUnknown();
  void OpenFirstDocument();
  void BeginFilterCheck();
  void ShowEmptyDocument();

  const boost::shared_ptr<CCommandQuit>& m_quit;
  std::wstring m_commandLine;
};

// Checks the filter file given on the command line.
class CCommandCheckFilter final : public CCommand {
 public:
  // `path` may be relative to the current folder.
  CCommandCheckFilter(CAppContext& context, std::wstring path) : CCommand(context), m_path(std::move(path)) {}

  // The dialog reports a file that cannot be read.
  void Execute(bool run) override;

 private:
  std::wstring m_path;
};

}  // namespace qlm
