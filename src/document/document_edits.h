// The edits offered by the windows. Each is one undo step; if it throws or changes nothing, there is no step.
// Rows are indices in the lists of the document, ascending and unique.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "document/document.h"

namespace qlm {

using CRows = std::vector<size_t>;

enum class Step { Up, Down };

// How many of the given tasks use a destination.
enum class DstUse { None, Mixed, All };

// --- tasks ---

// Returns the row of the new task. Its destinations are matched by value with those in the list. Throws what
// CheckTask throws, IDS_DST_NOT_COMMON or IDS_ID_DUPLICATE.
size_t InsertTask(CDocument& document, std::ptrdiff_t position, CTask task);

// Throws what InsertTask throws. An equal task is not an edit.
void ReplaceTask(CDocument& document, size_t row, CTask task);

void RemoveTasks(CDocument& document, const CRows& rows);

// Moves the tasks, in their order, before the task at `position`. Returns their new rows.
CRows MoveTasks(CDocument& document, const CRows& rows, std::ptrdiff_t position);

// Moves each task by one row; rows already at the end stay in place.
CRows StepTasks(CDocument& document, const CRows& rows, Step step);

void SetTaskFilter(CDocument& document, size_t row, const std::wstring& filterPath);

// --- destinations ---

// Returns the row of the new destination, which the tasks `users` then use. Throws what CheckDst throws,
// IDS_TOO_MANY_DSTS or IDS_DST_DUPLICATE.
size_t InsertDst(CDocument& document, std::ptrdiff_t position, CDst dst, const CRows& users = {});

// Tasks that use the destination use the new one afterwards. Throws what CheckDst throws, or
// IDS_DST_DUPLICATE. An equal destination is not an edit.
void ReplaceDst(CDocument& document, size_t row, CDst dst);

// Also removes the destinations from the tasks that use them.
void RemoveDsts(CDocument& document, const CRows& rows);

CRows MoveDsts(CDocument& document, const CRows& rows, std::ptrdiff_t position);
CRows StepDsts(CDocument& document, const CRows& rows, Step step);

// --- which task uses which destination ---

// A destination is added after those that the task already has.
void SetUse(CDocument& document, const CRows& tasks, size_t dst, bool use);

// Makes the tasks use a destination of the list. For the function passed to CDocument::Edit. Returns whether
// a task was changed.
bool AddUse(CContent& content, const CRows& tasks, const CDstPtr& dst);

// Returns the use of every destination in the list; DstUse::None if there are no tasks.
std::vector<DstUse> UsesOf(const CContent& content, const CRows& tasks);
DstUse UseOf(const CDocument& document, const CRows& tasks, size_t dst);

// Returns the number of tasks that use any of the destinations.
size_t CountUsers(const CDocument& document, const CRows& dsts);

}  // namespace qlm
