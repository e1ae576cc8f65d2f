// The commands that start and stop runs.
#pragma once

#include <vector>

#include "app/command.h"

namespace qlm {

struct CArchiveSetting;

// Runs the document, or stops the active run.
class CCommandExec final : public CCommand {
 public:
  CCommandExec(CAppContext& context, bool powerOff) : CCommand(context), m_powerOff(powerOff) {}
  void Execute(bool run) override;

 private:
  void StartRun(const std::vector<CTaskPtr>& tasks);

  bool m_powerOff;
};

// Lists what the focused task would back up; transfers nothing.
class CCommandTaskTargets final : public CCommand {
 public:
  using CCommand::CCommand;
  void Execute(bool run) override;
};

}  // namespace qlm
