#include "platform/file_system.h"

#include "support/exception.h"

namespace my {

std::optional<PathKind> KindIfKnown(IFileSystem& files, const std::wstring& path) {
  try {
    return files.Kind(path);
  } catch (const CException&) {
    return {};
  }
}

}  // namespace my
