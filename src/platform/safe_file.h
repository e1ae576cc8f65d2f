#pragma once

#include <string>
#include <string_view>

namespace my {

class IClock;
class IFileSystem;

// Replaces the content of a file so that at every moment the path holds either all of the old or all of the
// new bytes: they are written beside it, flushed, read back and compared, then renamed over it. A rename that
// another program refuses is tried again for up to two seconds.
// Throws the CException of the step that failed; the old file is then as it was and nothing is left beside.
void WriteFileSafely(IFileSystem& files, const IClock& clock, const std::wstring& path,
                     std::string_view bytes);

}  // namespace my
