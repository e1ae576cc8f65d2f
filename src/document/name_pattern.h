#pragma once

#include <string>

#include "document/dst.h"
#include "support/file_time.h"

namespace my {
class IClock;
}

namespace qlm {

// Expands the pattern of a destination for a task ID and a time (UTC, converted to the user's time zone). A
// backslash in the ID is kept and creates a subfolder.
//
//   <ID> (any case)  the task ID           <h> <h2>  hour, 2 digits      <h1>  without leading zero
//   <Y> <Y4>  year, 4 digits               <m> <m2>  minute, 2 digits    <m1>  without leading zero
//   <Y2>      year, 2 digits               <s> <s2>  second, 2 digits    <s1>  without leading zero
//   <M> <M2>  month, 2 digits              <M1>  without leading zero
//   <D> <D2>  day, 2 digits                <D1>  without leading zero
//
// Throws the system error if the time cannot be converted.
std::wstring ExpandName(const CDst& dst, const std::wstring& taskId, my::CFileTime time,
                        const my::IClock& clock);

// Adapts the extension of a pattern to the type: "zip" for archives, none for folders. Returns whether the
// text was changed.
bool AdjustExtension(DstType type, std::wstring& name);

// Returns whether the pattern already has the extension of the type.
bool HasFittingExtension(DstType type, const std::wstring& name);

// Does the same for a pattern being edited: trims spaces at its end, and keeps an empty pattern empty,
// because an extension would hide that there is no name.
bool FitPattern(DstType type, std::wstring& pattern);

// The kinds of tokens in a pattern.
struct CNameTokens {
  bool id = false;
  bool year = false;
  bool month = false;
  bool day = false;
  bool hour = false;
  bool minute = false;
  bool second = false;
};

CNameTokens TokensOf(const std::wstring& pattern);

}  // namespace qlm
