// The edits that the windows offer. Each is one step that Undo takes back; when one throws, or finds nothing
// to change, there is no step. Rows are positions in the document's lists, ascending and without repeats.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "document/document.h"

namespace qlm {

using CRows = std::vector<size_t>;

// The document takes no more destinations than this. A file that has more can be opened all the same.
inline constexpr size_t kMostDsts = 99;

enum class Step { UP, DOWN };

// How many of some tasks use a destination.
enum class DstUse { NONE, MIXED, ALL };

// --- tasks ---

// Answers the row of the new task. Its destinations are given by value or as objects of the list. Throws what
// CheckTask throws, IDS_DST_NOT_COMMON or IDS_ID_DUPLICATE.
size_t InsertTask(CDocument& document, std::ptrdiff_t position, CTask task);

// Throws what InsertTask throws. An equal task is no edit.
void ReplaceTask(CDocument& document, size_t row, CTask task);

void RemoveTasks(CDocument& document, const CRows& rows);

// Puts the tasks, in their order, before the task at that position. Answers where they are then.
CRows MoveTasks(CDocument& document, const CRows& rows, std::ptrdiff_t position);

// Moves each task by one; those that stand at the end of the way, one behind the other, stay.
CRows StepTasks(CDocument& document, const CRows& rows, Step step);

// Copies with free IDs, behind the last of the tasks. Answers their rows. Throws IDS_ID_NUMBERS_EXHAUSTED.
CRows DuplicateTasks(CDocument& document, const CRows& rows);

void SetTaskFilter(CDocument& document, size_t row, const std::wstring& filterPath);

// A task for a folder, named after it. Answers its row. Throws IDS_PATH_EMPTY, IDS_ID_EMPTY for a path
// without any name.
size_t AddFolderTask(CDocument& document, std::ptrdiff_t position, const std::wstring& folderPath);

// The free ID that AddFolderTask would use: "Docs" for "D:\Docs\", "C" for "C:\".
std::wstring FolderTaskId(const CTasks& tasks, const std::wstring& folderPath);

// --- destinations ---

// Answers the row of the new destination. Throws what CheckDst throws, IDS_TOO_MANY_DSTS or
// IDS_DST_DUPLICATE.
size_t InsertDst(CDocument& document, std::ptrdiff_t position, CDst dst);

// The tasks that use the destination use the changed one then. Throws what CheckDst throws, or
// IDS_DST_DUPLICATE. An equal destination is no edit.
void ReplaceDst(CDocument& document, size_t row, CDst dst);

// The tasks that use the destinations lose them.
void RemoveDsts(CDocument& document, const CRows& rows);

CRows MoveDsts(CDocument& document, const CRows& rows, std::ptrdiff_t position);
CRows StepDsts(CDocument& document, const CRows& rows, Step step);

// Copies behind the last of the destinations, told apart by a number behind the name in the pattern:
// "a_2.zip". Throws IDS_TOO_MANY_DSTS.
CRows DuplicateDsts(CDocument& document, const CRows& rows);

// --- which task uses which destination ---

// A destination that comes to a task comes behind those that it has.
void SetUse(CDocument& document, const CRows& tasks, size_t dst, bool use);

// The answer for every destination of the list in one go; NONE for no tasks.
std::vector<DstUse> UsesOf(const CContent& content, const CRows& tasks);
DstUse UseOf(const CDocument& document, const CRows& tasks, size_t dst);

// How many tasks use any of the destinations.
size_t CountUsers(const CDocument& document, const CRows& dsts);

}  // namespace qlm
