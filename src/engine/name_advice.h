// The part of the advice that concerns the names of backups.
#pragma once

#include <string>

#include "document/document.h"

namespace my {
class IClock;
}

namespace qlm {

class CAdviceList;

// Adds the findings about patterns, and about names and paths made from them.
void AddNameAdvice(const CContent& content, const my::IClock& clock, CAdviceList& list);

// Returns the path that a run would create for some time; a fixed one, so that all paths can be compared.
std::wstring SamplePath(const CDst& dst, const std::wstring& taskId, const my::IClock& clock);

}  // namespace qlm
