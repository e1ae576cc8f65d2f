#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>
#include <vector>

#include "bench.h"
#include "document/filter.h"
#include "engine/folder_copy.h"
#include "engine/source_listing.h"
#include "engine/targets.h"
#include "harness.h"
#include "platform/win32/win32_file_system.h"
#include "support/paths.h"
#include "tree.h"

namespace bench {
namespace {

// Everything that a bare loop needs, made outside of the measured time.
struct CReadyCopy {
  std::vector<std::wstring> folders;
  std::vector<std::pair<std::wstring, std::wstring>> files;  // from, to
};

CReadyCopy MakeReady(const std::wstring& source, const qlm::CTargets& targets, const std::wstring& folder) {
  CReadyCopy ready;
  ready.folders.push_back(folder);
  for (const qlm::CTarget& target : targets) {
    std::wstring to = my::JoinPath(folder, target.RelativePath());
    if (target.IsFolder()) {
      ready.folders.push_back(std::move(to));
    } else {
      ready.files.emplace_back(my::JoinPath(source, target.RelativePath()), std::move(to));
    }
  }
  return ready;
}

void CopyBarely(const CReadyCopy& ready) {
  for (const std::wstring& folder : ready.folders) ::CreateDirectoryW(folder.c_str(), nullptr);
  for (const auto& [from, to] : ready.files) {
    if (!::CopyFileW(from.c_str(), to.c_str(), TRUE)) throw std::runtime_error("a copy failed");
  }
}

}  // namespace

void MeasureCopy(const COptions& options) {
  const CTreeShape shape{.projects = std::max(1, 20 / options.divisor), .bytes = 4096};
  const std::wstring tree = EnsureTree(options.root, shape);
  const std::wstring folder = my::JoinPath(options.root, L"copied");
  my::CWin32FileSystem files;
  qlm::CTargets targets;
  qlm::ListSource(files, qlm::CFilter(), nullptr, tree, targets);
  const CReadyCopy ready = MakeReady(tree, targets, folder);
  RemoveTree(folder);  // what an interrupted run may have left

  const auto timed = [&](const auto& copy) {
    const double time = TimeMs(copy);
    RemoveTree(folder);
    return time;
  };
  const auto engine = [&] { qlm::CopyToFolder(files, nullptr, tree, targets, folder); };
  // The engine looks at the size of every copy, because the system's success is not always one.
  const auto withSizes = [&] {
    CopyBarely(ready);
    for (const auto& [from, to] : ready.files) files.FileSize(to);
  };
  std::printf("copying %llu files of %d bytes\n", static_cast<unsigned long long>(FileCount(shape)),
              shape.bytes);
  Compare({"bare loop", 0, [&] { return timed([&] { CopyBarely(ready); }); }},
          {{"folder copy", 1.05, [&] { return timed(engine); }},
           {"bare loop and every size", 0, [&] { return timed(withSizes); }}},
          options.rounds);
}

}  // namespace bench
