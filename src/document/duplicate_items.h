// The edits that duplicate items of the document, as those of document_edits.h.
#pragma once

#include "document/document_edits.h"

namespace qlm {

// Copies with free IDs, behind the last of the tasks. Answers their rows. Throws IDS_ID_NUMBERS_EXHAUSTED.
CRows DuplicateTasks(CDocument& document, const CRows& rows);

// Copies behind the last of the destinations, told apart by a number behind the name in the pattern:
// "a_2.zip". Throws IDS_TOO_MANY_DSTS.
CRows DuplicateDsts(CDocument& document, const CRows& rows);

}  // namespace qlm
