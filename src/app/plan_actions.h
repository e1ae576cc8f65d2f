// What the user can do about a plan. GUI thread only.
#pragma once

#include <string>
#include <string_view>

#include "document/task.h"
#include "engine/advice.h"

namespace qlm {

struct CAppContext;

// Makes the filter of a planned task exclude exactly one file, given by its path relative to the source. The
// user is asked where to save a filter if the task has none; using it is one undo step. Returns false if the
// user cancelled. Throws IDS_REFUSED_DURING_REPLACE, IDS_PLAN_OUTDATED if the document no longer has the task
// with this filter, IDS_FILTER_NOT_ENCODABLE, and what reading and safely writing a file throw.
bool ExcludeFile(CAppContext& context, const CTask& task, std::wstring_view relativePath);

// Asks, and moves the leftover of the finding to the recycle bin, after checking again that it is one and has
// not changed. Returns false if the user cancelled. Throws IDS_REFUSED_DURING_RUN, IDS_RECYCLE_CHANGED,
// IDS_PATH_NOT_RESPONDING, and what IShell::Recycle throws.
bool RecycleLeftover(CAppContext& context, const CAdvice& leftover);

}  // namespace qlm
