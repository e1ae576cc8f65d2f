#pragma once

#include <string>

#include "document/dst.h"
#include "support/file_time.h"

namespace my {
class IClock;
}

namespace qlm {

// The name that the destination's pattern yields for a task ID and a time (UTC), which is shown in the user's
// time zone. A backslash in the ID stays one and makes a subfolder.
//
//   <ID> (any case)  the task ID           <h> <h2>  hour, 2 digits      <h1>  without leading zero
//   <Y> <Y4>  year, 4 digits               <m> <m2>  minute, 2 digits    <m1>  without leading zero
//   <Y2>      year, 2 digits               <s> <s2>  second, 2 digits    <s1>  without leading zero
//   <M> <M2>  month, 2 digits              <M1>  without leading zero
//   <D> <D2>  day, 2 digits                <D1>  without leading zero
//
// Throws a CException with the system's text when the time cannot be converted.
std::wstring ExpandName(const CDst& dst, const std::wstring& taskId, my::CFileTime time,
                        const my::IClock& clock);

// Makes the extension of a pattern fit the type: "zip" for archives, none for folders. Answers whether the
// text was changed.
bool AdjustExtension(DstType type, std::wstring& name);

// Whether the pattern's extension fits the type already.
bool HasFittingExtension(DstType type, const std::wstring& name);

}  // namespace qlm
