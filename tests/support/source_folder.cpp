#include "support/source_folder.h"

namespace test {

std::string InSourceTree(const std::string& relativePath) {
#ifdef _WIN32
  return "Z:" QLM_SOURCE_DIR "/" + relativePath;
#else
  return QLM_SOURCE_DIR "/" + relativePath;
#endif
}

}  // namespace test
