// The commands that the program begins and ends with.
#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <string>

#include "app/command.h"

namespace qlm {

// Puts the window's state into the settings and writes their file.
class CCommandQuit final : public CCommand {
 public:
  using CCommand::CCommand;

  // A write failure is reported but does not block exit.
  void Execute(bool run) override;

  // Does the same without a message box. Throws what SaveSettings throws.
  void Store();

  // A start that the user gave up must not overwrite the file that could not be read.
  void SetSkipSave(bool skip) { m_skipSave = skip; }

 private:
  bool m_skipSave = true;
};

// Reads the settings and opens the first document. Run once, when the main window has been created; the
// window is closed again when the user does not want to go on without the settings.
class CCommandInit final : public CCommand {
 public:
  // `commandLine` is the process's whole command line. `quit` need not be made before it is executed.
  CCommandInit(CAppContext& context, const boost::shared_ptr<CCommandQuit>& quit, std::wstring commandLine)
      : CCommand(context), m_quit(quit), m_commandLine(std::move(commandLine)) {}

  void Execute(bool run) override;

 private:
  bool LoadSettings();
  bool AskAboutFailure(const std::wstring& path, my::CException failure);
  void FindArchiverIfUnknown();
  void OpenFirstDocument();

  const boost::shared_ptr<CCommandQuit>& m_quit;
  std::wstring m_commandLine;
};

}  // namespace qlm
