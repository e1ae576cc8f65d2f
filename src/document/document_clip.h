// Tasks and destinations on the clipboard: as a document for this program, and as text for other programs.
#pragma once

#include <string>
#include <string_view>

#include "document/document_edits.h"

namespace my {
class IMessageTexts;
class IXmlDom;
}  // namespace my

namespace qlm {

struct CClip {
  std::string document;  // the content of a document file
  std::wstring text;     // one line per item, fields separated by tabs
};

// Copies the tasks and the destinations they use. Throws what DocumentBytes throws.
CClip CopyTasks(my::IXmlDom& dom, const CDocument& document, const CRows& rows);

CClip CopyDsts(my::IXmlDom& dom, const my::IMessageTexts& texts, const CDocument& document,
               const CRows& rows);

// Inserts the tasks of a clip with free IDs, and adds their destinations that the document lacks. One edit;
// returns the new rows, none if the clip has no tasks. Throws what ContentFromBytes throws, IDS_TOO_MANY_DSTS
// or IDS_ID_NUMBERS_EXHAUSTED.
CRows PasteTasks(my::IXmlDom& dom, CDocument& document, std::string_view clip, std::ptrdiff_t position);

// Inserts the destinations of a clip that the document lacks, including those used by its tasks, and makes
// the tasks `users` use them. One edit; returns the new rows. Throws what ContentFromBytes throws,
// IDS_TOO_MANY_DSTS, or IDS_DST_DUPLICATE if the document has them all.
CRows PasteDsts(my::IXmlDom& dom, CDocument& document, std::string_view clip, std::ptrdiff_t position,
                const CRows& users = {});

}  // namespace qlm
