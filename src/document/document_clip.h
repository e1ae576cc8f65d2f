// Tasks and destinations on the clipboard: as a document of their own, and as plain text for other programs.
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
  std::string document;  // the bytes of a document file
  std::wstring text;     // a line for each item, its fields with tabs between them
};

// The tasks with the destinations that they use. Throws what DocumentBytes throws.
CClip CopyTasks(my::IXmlDom& dom, const CDocument& document, const CRows& rows);

CClip CopyDsts(my::IXmlDom& dom, const my::IMessageTexts& texts, const CDocument& document,
               const CRows& rows);

// Inserts the tasks of a clip under free IDs, and adds the destinations that they need and the document
// lacks. One edit; answers the new rows, none when the clip has no tasks. Throws what ContentFromBytes
// throws, IDS_TOO_MANY_DSTS or IDS_ID_NUMBERS_EXHAUSTED.
CRows PasteTasks(my::IXmlDom& dom, CDocument& document, std::string_view clip, std::ptrdiff_t position);

// Inserts the destinations of a clip that the document lacks, those that its tasks use included. One edit;
// answers the new rows. Throws what ContentFromBytes throws, IDS_TOO_MANY_DSTS, or IDS_DST_DUPLICATE when the
// document has them all.
CRows PasteDsts(my::IXmlDom& dom, CDocument& document, std::string_view clip, std::ptrdiff_t position);

}  // namespace qlm
