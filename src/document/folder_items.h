// New tasks and destinations for folders. Each function is one undo step.
#pragma once

#include <string>
#include <vector>

#include "document/document_edits.h"

namespace qlm {

// Inserts a task for each folder, named after it, with the given destinations of the list. Returns the rows.
// Throws IDS_PATH_EMPTY, or IDS_ID_EMPTY for a path without a name.
CRows AddFolderTasks(CDocument& document, std::ptrdiff_t position, const std::vector<std::wstring>& folders,
                     const CTaskDsts& dsts);

// Returns the ID that AddFolderTasks would use: "Docs" for "D:\Docs\", "C" for "C:\", made free with a
// number.
std::wstring FolderTaskId(const CTasks& tasks, const std::wstring& folderPath);

// Returns the destinations for a new task: those of the last selected task or, if it has none, the only
// destination in the list.
CTaskDsts NewTaskDsts(const CDocument& document, const CRows& selectedTasks);

// Inserts a destination with the default type and pattern for each folder, and makes the tasks `users` use
// them. Destinations that the list has are left out. Returns the rows. Throws IDS_PATH_EMPTY,
// IDS_TOO_MANY_DSTS, or IDS_DST_DUPLICATE if the list has them all.
CRows AddFolderDsts(CDocument& document, std::ptrdiff_t position, const std::vector<std::wstring>& folders,
                    const CRows& users);

}  // namespace qlm
