#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include "bench.h"
#include "document/filter.h"
#include "engine/folder_copy.h"
#include "engine/fresh_files.h"
#include "engine/helper_count.h"
#include "engine/ordered_work.h"
#include "engine/source_listing.h"
#include "engine/targets.h"
#include "engine/transfer_counters.h"
#include "harness.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_threads.h"
#include "support/paths.h"
#include "tree.h"

namespace bench {
namespace {

// The files of a tree.
struct CSource {
  explicit CSource(std::wstring folder) : path(std::move(folder)) {
    my::CWin32FileSystem files;
    qlm::ListSource(files, qlm::CFilter(), nullptr, path, targets);
  }

  std::wstring path;
  qlm::CTargets targets;
};

// What a bare loop needs, prepared outside the measured time.
struct CReadyCopy {
  std::vector<std::wstring> folders;
  std::vector<std::pair<std::wstring, std::wstring>> files;  // from, to
};

CReadyCopy MakeReady(const CSource& source, const std::wstring& folder) {
  CReadyCopy ready;
  ready.folders.push_back(folder);
  for (const qlm::CTarget target : source.targets) {
    std::wstring to = my::JoinPath(folder, target.RelativePath());
    if (target.IsFolder()) {
      ready.folders.push_back(std::move(to));
    } else {
      ready.files.emplace_back(my::JoinPath(source.path, target.RelativePath()), std::move(to));
    }
  }
  return ready;
}

enum class Sizes { Unread, Read };

// Copies without the engine. Sizes::Read also reads the size of every copy as the engine does, because
// CopyFile may report success for a truncated copy.
void CopyBarely(const CReadyCopy& ready, Sizes sizes, size_t threads) {
  for (const std::wstring& folder : ready.folders) ::CreateDirectoryW(folder.c_str(), nullptr);
  std::atomic<size_t> next = 0;
  std::atomic<bool> failed = false;
  const auto copy = [&] {
    for (size_t i = next++; i < ready.files.size(); i = next++) {
      const auto& [from, to] = ready.files[i];
      if (!::CopyFileW(from.c_str(), to.c_str(), TRUE)) failed = true;
      WIN32_FILE_ATTRIBUTE_DATA data;
      if (sizes == Sizes::Read) ::GetFileAttributesExW(to.c_str(), GetFileExInfoStandard, &data);
    }
  };
  std::vector<std::thread> others;
  while (others.size() + 1 < threads) others.emplace_back(copy);
  copy();
  for (std::thread& other : others) other.join();
  if (failed) throw std::runtime_error("a copy failed");
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

// The ways to copy a source into new folders. Each returns the milliseconds that it took. The copies are
// removed at once if they would fill the disk.
class CCopies {
 public:
  enum class Removal { AtTheEnd, AtOnce };

  CCopies(const CSource& source, std::wstring parent, Removal removal)
      : m_source(source), m_folders(std::move(parent)), m_removal(removal) {}

  double Bare(size_t threads, Sizes sizes = Sizes::Unread) {
    const std::wstring folder = m_folders.Next();
    const CReadyCopy ready = MakeReady(m_source, folder);
    return Ended(folder, TimeMs([&] { CopyBarely(ready, sizes, threads); }));
  }

  double Engine(my::IFileSystem& files, size_t threads) {
    const std::wstring folder = m_folders.Next();
    qlm::CTransferCounters counters(qlm::CountTargets(m_source.targets), 0);
    const my::CHelpers helpers{&m_threads, threads};
    return Ended(folder, TimeMs([&] {
                   qlm::CopyToFolder({files, m_clock, nullptr}, helpers, m_source.path, m_source.targets,
                                     folder, counters);
                 }));
  }

  double Flushed(size_t threads) { return Engine(m_flushed, threads); }
  double Unflushed(size_t threads) { return Engine(m_unflushed, threads); }

 private:
  double Ended(const std::wstring& folder, double ms) {
    if (m_removal == Removal::AtOnce) RemoveTree(folder);
    return ms;
  }

  const CSource& m_source;
  CFreshFolders m_folders;
  Removal m_removal;
  my::CWin32FileSystem m_flushed;
  CUnflushedFiles m_unflushed;
  my::CWin32Clock m_clock;
  my::CWin32Threads m_threads;
};

// Measures what following the progress costs: counting each file, and the progress routine for large files.
void MeasureCounting(const COptions& options, const qlm::CTargets& targets, double copyMs) {
  qlm::CTransferCounters counters(qlm::CountTargets(targets), 0);
  const double countMs = TimeMs([&] {
    for (size_t i = 0; i < targets.size(); ++i) {
      qlm::CFileCount file = counters.BeginFile(i, targets[i].Size());
      counters.EndFile(file);
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
  qlm::CFileCount file = counters.BeginFile(0, bytes.size());
  const my::CCopyProgress count = [&](uint64_t copied) { counters.CountWithinFile(file, copied); };
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

// The shapes of the trees.
CTreeShape SmallFiles(const COptions& options) {
  return {.projects = std::max(1, 20 / options.divisor), .bytes = 4096};
}

CTreeShape LargeFiles(const COptions& options) {
  return {.projects = 1, .files = 10, .bytes = (64 << 20) / options.divisor};
}

CSource MakeSource(const COptions& options, const CTreeShape& shape) {
  CSource source(EnsureTree(options.root, shape));
  std::printf("copying %llu files of %d bytes\n", static_cast<unsigned long long>(FileCount(shape)),
              shape.bytes);
  return source;
}

size_t Threads() {
  return qlm::HelperCount({my::DiskKind::NoSeeks}, std::thread::hardware_concurrency());
}

void CompareFlushed(const COptions& options, CCopies copies) {
  Compare({"bare loop", 0, [&] { return copies.Bare(1); }},
          {{"folder copy", 0, [&] { return copies.Flushed(Threads()); }},
           {"the same with one thread", 0, [&] { return copies.Flushed(1); }}},
          options.rounds);
}

}  // namespace

void MeasureCopy(const COptions& options) {
  const CSource source = MakeSource(options, SmallFiles(options));
  CCopies copies(source, my::JoinPath(options.root, L"copied"), CCopies::Removal::AtTheEnd);
  Compare({"bare loop", 0, [&] { return copies.Bare(1); }},
          {{"folder copy, not flushed", 0.70, [&] { return copies.Unflushed(Threads()); }},
           {"the same with one thread", 1.05, [&] { return copies.Unflushed(1); }},
           {"the same with four threads", 0, [&] { return copies.Unflushed(4); }},
           {"bare loop of two threads", 0, [&] { return copies.Bare(2); }},
           {"bare loop with a look at sizes", 0, [&] { return copies.Bare(1, Sizes::Read); }}},
          options.rounds);
  MeasureCounting(options, source.targets, copies.Unflushed(1));
}

void MeasureLargeCopy(const COptions& options) {
  const CSource source = MakeSource(options, LargeFiles(options));
  CCopies copies(source, my::JoinPath(options.root, L"copied"), CCopies::Removal::AtOnce);
  Compare({"bare loop", 0, [&] { return copies.Bare(1); }},
          {{"folder copy, not flushed", 0.60, [&] { return copies.Unflushed(Threads()); }},
           {"the same with one thread", 1.05, [&] { return copies.Unflushed(1); }},
           {"bare loop of two threads", 0, [&] { return copies.Bare(2); }}},
          options.rounds);
}

void MeasureFlushedCopy(const COptions& options) {
  const std::wstring folder = my::JoinPath(options.root, L"copied");
  {
    const CSource source = MakeSource(options, SmallFiles(options));
    CompareFlushed(options, CCopies(source, folder, CCopies::Removal::AtTheEnd));
  }
  const CSource source = MakeSource(options, LargeFiles(options));
  CompareFlushed(options, CCopies(source, folder, CCopies::Removal::AtOnce));
}

}  // namespace bench
