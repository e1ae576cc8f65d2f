// The source changes while it is listed and copied.
#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <chrono>
#include <random>
#include <thread>

#include "document/filter.h"
#include "engine/folder_copy.h"
#include "engine/fresh_files.h"
#include "engine/ordered_work.h"
#include "engine/source_listing.h"
#include "engine/targets.h"
#include "engine/transfer_counters.h"
#include "platform/win32/handle.h"
#include "platform/win32/win32_clock.h"
#include "platform/win32/win32_threads.h"
#include "scratch_folder.h"

namespace {

TEST(SourceRace, held_folder_stays_in_its_place_but_its_files_do_not) {
  test::CScratchFolder scratch;
  const auto sub = scratch.At(L"sub");
  const auto moved = scratch.At(L"moved");
  scratch.files.CreateFolders(sub);
  auto held = scratch.files.HoldFolder(sub);
  EXPECT_TRUE(held && scratch.files.HoldFolder(sub)) << "by several runs";
  EXPECT_FALSE(::MoveFileExW(sub.c_str(), moved.c_str(), 0) || ::RemoveDirectoryW(sub.c_str()));
  scratch.Write(L"sub\\new", "x");
  EXPECT_TRUE(::DeleteFileW(scratch.At(L"sub\\new").c_str()));
  held.reset();
  EXPECT_TRUE(::MoveFileExW(sub.c_str(), moved.c_str(), 0));
  EXPECT_FALSE(scratch.files.HoldFolder(sub) || scratch.files.IsLink(sub)) << "missing";
  const my::CKernelHandle deleting(::CreateFileW(moved.c_str(), DELETE, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                                 nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                                                 nullptr));
  EXPECT_TRUE(deleting && !scratch.files.HoldFolder(moved)) << "open elsewhere";
  EXPECT_FALSE(scratch.files.IsLink(moved));
}

// Makes random changes below a folder until it is destroyed.
class CChangingTree {
 public:
  CChangingTree(std::wstring root, uint32_t seed) : m_root(std::move(root)), m_random(seed) {}
  ~CChangingTree() {
    m_end = true;
    m_thread.join();
  }

 private:
  void Change() {
    const std::wstring path = RandomPath();
    switch (m_random() % 6) {
      case 0: ::DeleteFileW(path.c_str()); break;
      case 1: ::RemoveDirectoryW(path.c_str()); break;
      case 2: ::CreateDirectoryW(path.c_str(), nullptr); break;
      case 3: ::MoveFileExW(path.c_str(), RandomPath().c_str(), MOVEFILE_REPLACE_EXISTING); break;
      default: Write(path);
    }
  }

  std::wstring RandomPath() {
    std::wstring path = m_root;
    for (size_t depth = m_random() % 3 + 1; depth > 0; --depth) {
      path += L'\\';
      path += static_cast<wchar_t>(L'a' + m_random() % 3);
    }
    return path;
  }

  // Makes a file, or changes its size.
  void Write(const std::wstring& path) {
    const my::CKernelHandle file(::CreateFileW(path.c_str(), GENERIC_WRITE,
                                               FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                                               FILE_ATTRIBUTE_NORMAL, nullptr));
    ::SetFilePointer(file.Get(), static_cast<LONG>(m_random() % 100'000), nullptr, FILE_BEGIN);
    ::SetEndOfFile(file.Get());
  }

  std::wstring m_root;
  std::mt19937 m_random;
  std::atomic<bool> m_end = false;
  std::thread m_thread{[this] {
    for (; !m_end; ::Sleep(3)) Change();
  }};
};

TEST(SourceRace, changing_tree_is_copied_as_listed_or_the_reason_is_told) {
  test::CScratchFolder scratch;
  const my::CWin32Clock clock;
  my::CWin32Threads threads;
  const auto source = scratch.At(L"src");
  scratch.files.CreateFolders(source);
  const CChangingTree first(source, 1), second(source, 2);
  int copied = 0, failed = 0;
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(4);
  while (std::chrono::steady_clock::now() < end) {
    const auto folder = scratch.At(L"copy") + std::to_wstring(copied + failed);
    scratch.files.CreateFolders(folder);
    qlm::CTargets targets;
    qlm::ListSource(scratch.files, {}, nullptr, source, targets);
    qlm::CTransferCounters counters(qlm::CountTargets(targets), 0);
    try {
      qlm::CopyToFolder({scratch.files, clock, nullptr}, {&threads, 3}, source, targets, folder, counters);
    } catch (const my::CException&) {
      ++failed;
      continue;
    }
    ++copied;
    for (const qlm::CTarget target : targets) {
      const auto copy = my::JoinPath(folder, target.RelativePath());
      EXPECT_TRUE(!target.IsCountedFile() || scratch.files.Kind(copy) == my::PathKind::File);
    }
  }
  EXPECT_TRUE(copied > 0 && failed > 0) << copied << " copied, " << failed << " failed";
}

}  // namespace
