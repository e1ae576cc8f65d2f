#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/command.h"

namespace qlm {

// Takes files that were dropped on the window: a folder becomes a task, a filter file becomes that of the
// task it was dropped on, a document is opened or, with `append`, added.
class CCommandDrop final : public CCommand {
 public:
  // `taskRow` is the row of the task list under the pointer.
  CCommandDrop(CAppContext& context, std::vector<std::wstring> paths, std::optional<size_t> taskRow,
               bool append)
      : CCommand(context), m_paths(std::move(paths)), m_taskRow(taskRow), m_append(append) {}

  // Throws IDS_REFUSED_DURING_REPLACE, CListException with IDS_DROP_FILTER_ON_TASK, IDS_DROP_UNKNOWN, or what
  // the document or CCommandOpen throws. The files before the one that is refused have been taken.
  void Execute(bool run) override;

 private:
  void Drop(const std::wstring& path);

  std::vector<std::wstring> m_paths;
  std::optional<size_t> m_taskRow;
  bool m_append;
};

}  // namespace qlm
