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
  bool PrepareArchives(const std::vector<CTaskPtr>& tasks, CArchiveSetting& archive);

  bool m_powerOff;
};

// Takes back the power-off after the active run; the setting is unchanged. Throws IDS_NOT_RUNNING if none is
// due.
class CCommandKeepPower final : public CCommand {
 public:
  using CCommand::CCommand;
  void Execute(bool run) override;
};

// Lists what the focused task would back up; transfers nothing.
class CCommandTaskTargets final : public CCommand {
 public:
  using CCommand::CCommand;
  void Execute(bool run) override;
};

}  // namespace qlm
