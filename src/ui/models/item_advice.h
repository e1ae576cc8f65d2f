// Findings about an item while it is edited, a line for each, the most severe first; empty if there are none.
// Checks local disks but not network paths, which can take half a minute to respond.
#pragma once

#include <string>

#include "document/document_edits.h"

namespace qlm {

struct CEnginePorts;

// `before` is the ID of the edited task in the content; another ID for a new task. Nothing is found for a
// task without a source.
std::wstring TaskAdvice(const CContent& content, const std::wstring& before, const CTask& task,
                        const CEnginePorts& ports);

// `before` is the edited destination in the content; null for a new one, which the tasks `users` will use.
// The extension of the pattern is fitted. If no task uses the destination, `sampleId` is that of a task that
// does.
std::wstring DstAdvice(const CContent& content, const CDstPtr& before, const CDst& dst, const CRows& users,
                       const std::wstring& sampleId, const CEnginePorts& ports);

}  // namespace qlm
