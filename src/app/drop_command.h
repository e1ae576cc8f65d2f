#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/command.h"

namespace qlm {

// Handles files dropped on the window: a folder becomes a task, a filter file the filter of the task it was
// dropped on, a document is opened, or appended if `append` is set.
class CCommandDrop final : public CCommand {
 public:
  // `taskRow` is the row of the task list under the pointer.
  CCommandDrop(CAppContext& context, std::vector<std::wstring> paths, std::optional<size_t> taskRow,
               bool append)
      : CCommand(context), m_paths(std::move(paths)), m_taskRow(taskRow), m_append(append) {}

  // Throws IDS_REFUSED_DURING_REPLACE, CListException with IDS_DROP_FILTER_ON_TASK, IDS_DROP_UNKNOWN, or what
  // the document or CCommandOpen throws. Files before the refused one stay added.
  void Execute(bool run) override;

 private:
  void Drop(const std::wstring& path);

  std::vector<std::wstring> m_paths;
  std::optional<size_t> m_taskRow;
  bool m_append;
};

}  // namespace qlm
