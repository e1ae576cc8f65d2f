#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <utility>
#include <vector>

#include "bench.h"
#include "document/filter.h"
#include "engine/folder_copy.h"
#include "engine/fresh_files.h"
#include "engine/source_listing.h"
#include "engine/targets.h"
#include "engine/transfer_counters.h"
#include "harness.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_file_system.h"
#include "support/paths.h"
#include "tree.h"

namespace bench {
namespace {

// What a bare loop needs, prepared outside the measured time.
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

// Copies without the engine. `withSizes` also reads the size of every copy as the engine does, because
// CopyFile may report success for a truncated copy.
void CopyBarely(const CReadyCopy& ready, bool withSizes) {
  for (const std::wstring& folder : ready.folders) ::CreateDirectoryW(folder.c_str(), nullptr);
  for (const auto& [from, to] : ready.files) {
    if (!::CopyFileW(from.c_str(), to.c_str(), TRUE)) throw std::runtime_error("a copy failed");
    WIN32_FILE_ATTRIBUTE_DATA data;
    if (withSizes) ::GetFileAttributesExW(to.c_str(), GetFileExInfoStandard, &data);
  }
}

// Does not flush: under Wine each flush is an fsync, whose cost says nothing about Windows.
class CUnflushedFiles : public my::CWin32FileSystem {
 public:
  uint64_t FlushFile(const std::wstring& path, my::FlushDepth) override {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    ::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data);
    return static_cast<uint64_t>(data.nFileSizeHigh) << 32 | data.nFileSizeLow;
  }
};

// Creates a new folder for each copy and removes all of them at the end: some file systems create files many
// times slower just after many were removed.
class CFreshFolders {
 public:
  explicit CFreshFolders(std::wstring parent) : m_parent(std::move(parent)) {
    RemoveTree(m_parent);  // left by an interrupted run
    m_files.CreateFolders(m_parent);
  }
  ~CFreshFolders() { RemoveTree(m_parent); }

  std::wstring Next() { return my::JoinPath(m_parent, std::to_wstring(m_count++)); }

 private:
  my::CWin32FileSystem m_files;
  std::wstring m_parent;
  int m_count = 0;
};

// Measures what following the progress costs: counting each file, and the progress routine for large files.
void MeasureCounting(const COptions& options, const qlm::CTargets& targets, double copyMs) {
  qlm::CTransferCounters counters(qlm::CountTargets(targets), 0);
  const double countMs = TimeMs([&] {
    for (size_t i = 0; i < targets.size(); ++i) {
      counters.BeginFile(i, targets[i].Size());
      counters.EndFile();
    }
  });
  PrintFigure("counting, share of folder copy", countMs / copyMs, "", 0.01);

  constexpr int kFiles = 4;
  const std::string bytes((size_t{128} << 20) / static_cast<size_t>(options.divisor), 'x');
  CFreshFolders folders(my::JoinPath(options.root, L"large"));
  my::CWin32FileSystem disk;
  my::IFileSystem& files = disk;
  const std::wstring source = folders.Next();
  files.CreateFolders(source);
  const auto in = [](const std::wstring& folder, int i) { return my::JoinPath(folder, std::to_wstring(i)); };
  for (int i = 0; i < kFiles; ++i) files.CreateNewFile(in(source, i))->Write(bytes);
  const my::CCopyProgress count = [&counters](uint64_t copied) { counters.CountWithinFile(copied); };
  const auto copy = [&](const my::CCopyProgress& progress) {
    const std::wstring folder = folders.Next();
    files.CreateFolders(folder);
    const double ms = TimeMs([&] {
      for (int i = 0; i < kFiles; ++i) files.Copy(in(source, i), in(folder, i), progress);
    });
    RemoveTree(folder);
    return ms;
  };
  Compare({"large files", 0, [&] { return copy({}); }},
          {{"large files with progress", 1.01, [&] { return copy(count); }}}, options.rounds);
}

}  // namespace

void MeasureCopy(const COptions& options) {
  const CTreeShape shape{.projects = std::max(1, 20 / options.divisor), .bytes = 4096};
  const std::wstring tree = EnsureTree(options.root, shape);
  CFreshFolders folders(my::JoinPath(options.root, L"copied"));
  my::CWin32FileSystem flushed;
  CUnflushedFiles unflushed;
  const my::CWin32Clock clock;
  qlm::CTargets targets;
  qlm::ListSource(flushed, qlm::CFilter(), nullptr, tree, targets);

  const auto bare = [&](bool withSizes) {
    const CReadyCopy ready = MakeReady(tree, targets, folders.Next());
    return TimeMs([&] { CopyBarely(ready, withSizes); });
  };
  const auto engine = [&](my::IFileSystem& files) {
    const std::wstring folder = folders.Next();
    qlm::CTransferCounters counters(qlm::CountTargets(targets), 0);
    return TimeMs([&] { qlm::CopyToFolder({files, clock, nullptr}, tree, targets, folder, counters); });
  };
  std::printf("copying %llu files of %d bytes\n", static_cast<unsigned long long>(FileCount(shape)),
              shape.bytes);
  Compare({"bare loop", 0, [&] { return bare(false); }},
          {{"folder copy, not flushed", 1.05, [&] { return engine(unflushed); }},
           {"folder copy", 0, [&] { return engine(flushed); }},
           {"bare loop with a look at sizes", 0, [&] { return bare(true); }}},
          options.rounds);
  MeasureCounting(options, targets, engine(unflushed));
}

}  // namespace bench
