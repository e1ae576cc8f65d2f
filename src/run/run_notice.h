#pragma once

#include <optional>
#include <string>

namespace my {
class IMessageTexts;
}

namespace qlm {

struct CRunOutcome;

struct CRunNotice {
  bool isError = true;  // else a warning
  std::wstring title;
  std::wstring text;
};

// Returns what the user must know of a run whose output nobody sees; nullopt if all is well or the user has
// stopped it.
std::optional<CRunNotice> NoticeOf(const my::IMessageTexts& texts, const std::wstring& documentPath,
                                   const CRunOutcome& outcome);

}  // namespace qlm
