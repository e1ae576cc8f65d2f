#pragma once

#include <string>
#include <string_view>

namespace my {

class IClock;
class IFileSystem;

// Replaces the content of a file atomically: at every moment the path has either all of the old or all of the
// new bytes. They are written to a temporary file in the same folder, flushed, read back and compared, and
// renamed over the old file. A rename that another program prevents is repeated for up to two seconds. Throws
// the CException of the failed step; the old file is then unchanged and the temporary file removed.
void WriteFileSafely(IFileSystem& files, const IClock& clock, const std::wstring& path,
                     std::string_view bytes);

}  // namespace my
