#pragma once

#include <cstdint>

#include "document/document_edits.h"

namespace qlm {

class CDocument;

// Returns the id of the hint about what to do next: one of IDS_NEXT_*.
uint32_t NextStep(const CDocument& document, const CRows& selectedTasks, bool running);

}  // namespace qlm
