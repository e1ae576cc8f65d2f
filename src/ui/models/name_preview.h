// Help for editing the name pattern of a destination.
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
  uint32_t descId;  // id of its description
  bool firstOfGroup = false;
};

// Returns the tokens of patterns, one spelling of each.
std::span<const CNameToken> NameTokens();

// Returns the task ID for previews: that of the first of these rows, or of the first task, or a sample.
std::wstring SampleTaskId(const CTasks& tasks, const CRows& rows, const my::IMessageTexts& texts);

// Returns the name of a backup for this task ID and time (UTC), or the reason why pattern or folder are
// invalid.
std::wstring NamePreview(const CDst& dst, const std::wstring& taskId, my::CFileTime time,
                         const my::IClock& clock, const my::IMessageTexts& texts);

}  // namespace qlm
