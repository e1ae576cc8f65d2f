// What helps to write the name pattern of a destination.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "document/document_edits.h"
#include "support/file_time.h"

namespace my {
class IClock;
class IMessageTexts;
}  // namespace my

namespace qlm {

struct CNameToken {
  const wchar_t* text;
  uint32_t descId;  // what it stands for
  bool firstOfGroup = false;
};

// The tokens of patterns, one spelling of each.
std::span<const CNameToken> NameTokens();

// Makes the extension of a pattern fit the type, but leaves an empty pattern alone: an extension would hide
// that there is no name. Answers whether the text was changed.
bool FitPattern(DstType type, std::wstring& pattern);

// The ID of the task for which names are shown: the first of these rows, else the first task, else a sample.
std::wstring SampleTaskId(const CTasks& tasks, const CRows& rows, const my::IMessageTexts& texts);

// The name that the destination gets for this task ID and time (UTC); what is wrong with the pattern or the
// folder, if no file could have such a name.
std::wstring NamePreview(const CDst& dst, const std::wstring& taskId, my::CFileTime time,
                         const my::IClock& clock, const my::IMessageTexts& texts);

}  // namespace qlm
