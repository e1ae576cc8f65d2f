// The part of the advice that needs the listed sources of a plan.
#pragma once

#include <vector>

#include "engine/advice.h"
#include "engine/plan.h"

namespace qlm {

// Returns the findings about a planned task of the document: a volume without room for the backup, and a
// backup that will be skipped although it has other files than the source. Lists that backup, so it takes as
// long as listing the source. Throws IDS_STOPPED.
std::vector<CAdvice> FindPlanAdvice(const CContent& content, const CPlanTask& plan, const CEnginePorts& ports,
                                    const my::IStopQuery* stop);

}  // namespace qlm
