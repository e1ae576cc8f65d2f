// The commands that start and stop runs.
#pragma once

#include <vector>

#include "app/command.h"

namespace qlm {

struct CArchiveSetting;

enum class RunKind { Document, DocumentThenPowerOff, SelectedTasks };

// Runs the document, or the selected tasks. RunKind::Document stops the active run.
class CCommandExec final : public CCommand {
 public:
  CCommandExec(CAppContext& context, RunKind kind) : CCommand(context), m_kind(kind) {}

  // Throws IDS_NO_TASKS if no task to run has a destination, and CListException with IDS_SELECT_TASKS.
  void Execute(bool run) override;

 private:
  void StartRun(const std::vector<CTaskPtr>& tasks);
  bool PrepareArchives(const std::vector<CTaskPtr>& tasks, CArchiveSetting& archive);

  RunKind m_kind;
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

// Returns the selected tasks in the order of the document. Throws CListException with IDS_SELECT_TASKS if
// there are none.
std::vector<size_t> RequireSelectedTasks(const CAppContext& context);

// Throws IDS_NO_TASKS with what to do next, unless one of the tasks has a destination.
void RequireDst(const CAppContext& context, const std::vector<CTaskPtr>& tasks);

}  // namespace qlm
