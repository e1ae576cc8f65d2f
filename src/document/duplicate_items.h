// Edits that duplicate items of the document; see document_edits.h.
#pragma once

#include "document/document_edits.h"

namespace qlm {

// Inserts copies with free IDs after the last of the tasks. Returns their rows. Throws
// IDS_ID_NUMBERS_EXHAUSTED.
CRows DuplicateTasks(CDocument& document, const CRows& rows);

// Inserts copies after the last of the destinations, with a number appended to the name in the pattern:
// "a_2.zip". Returns their rows. Throws IDS_TOO_MANY_DSTS.
CRows DuplicateDsts(CDocument& document, const CRows& rows);

}  // namespace qlm
