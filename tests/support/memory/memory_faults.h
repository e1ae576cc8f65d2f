// What goes wrong on a disk in memory, and when.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/file_system.h"
#include "support/exception.h"

namespace test {

// Operations from CREATE_FOLDERS on change the disk. REMOVE is for files and folders.
enum class Op {
  FIND,
  NEXT,
  KIND,
  IS_LINK,
  HOLD,
  SIZE,
  READ,
  FREE_SPACE,
  TEMP_FOLDER,
  CREATE_FOLDERS,
  COPY,
  FLUSH_FILE,
  MOVE,
  MOVE_OVER,
  REMOVE,
  CREATE_FILE,
  APPEND,
  WRITE,
  FLUSH,
  CLOSE
};

// A crash with power loss: operations in exception handlers fail too.
struct CCrash {};

// A running operation: holds the lock and decides whether it fails.
struct CStep {
  bool Broken() const { return crash || win32 != 0; }
  size_t Done(size_t whole) const { return Broken() ? whole / 2 : whole; }

  void RefuseIf(bool condition, uint32_t code) {
    if (condition) win32 = code;
    if (condition) End();
  }

  // Throws if the operation has to fail.
  void End() const {
    if (crash) throw CCrash();
    if (win32 == 0) return;
    std::vector<my::CMsgArg> args(paths.begin(), paths.end());
    if (!args.empty()) args.insert(args.begin(), my::CSystemError::FromWin32(win32));
    throw my::CException(messageId, std::move(args));
  }

  std::unique_lock<std::mutex> hold;
  uint32_t messageId;
  std::vector<std::wstring> paths;
  bool crash = false;
  uint32_t win32 = 0;
};

// The faults of a file system, set by tests, and what other programs do between its operations.
class CFaults {
 public:
  // Runs `work` once, before the next operation of this kind.
  void Meanwhile(Op op, std::function<void()> work) { m_meanwhile[op] = std::move(work); }

  // Runs `work` once, before the n-th operation of any kind from now.
  void MeanwhileAt(int n, std::function<void()> work) {
    m_workIn = n;
    m_work = std::move(work);
  }
  bool IsMeanwhileDone() const { return m_workIn <= 0; }

  // Makes the n-th operation of this kind from now fail (n >= 1). Each kind has its own countdown.
  void FailAt(Op op, int n, uint32_t win32 = my::kErrorDiskFull) { m_countdowns[op] = {n, win32}; }

  // Makes every operation of this kind on this path fail.
  void FailOn(Op op, const std::wstring& path) { m_badPaths.emplace_back(op, path); }

  // Crashes at the n-th changing operation from now: a rename is completed, other operations are half done
  // where possible, files not flushed to the device lose their second half, and every later operation throws
  // CCrash.
  void CrashAt(int n) { m_crashIn = n; }

  void ClearFaults() {  // also ends a crash
    m_countdowns.clear();
    m_badPaths.clear();
    m_crashIn = 0;
    m_crashed = m_failed = false;
  }

  bool Failed() const { return m_failed; }
  const std::vector<std::wstring>& Log() const { return m_log; }  // "copy C:\a -> C:\b"

 protected:
  // Begins an operation: runs what happens meanwhile, and locks.
  CStep Begin(Op op, const wchar_t* name, uint32_t messageId, const std::vector<std::wstring>& paths) {
    if (const auto work = TakeMeanwhile(op)) work();
    CStep step{std::unique_lock(*m_lock), messageId, paths};
    if (m_crashed) throw CCrash();
    m_log.emplace_back(name);
    for (const std::wstring& path : paths) m_log.back() += (&path == paths.data() ? L" " : L" -> ") + path;
    if (op >= Op::CREATE_FOLDERS && --m_crashIn == 0) step.crash = m_crashed = true;
    const auto countdown = m_countdowns.find(op);
    if (countdown != m_countdowns.end() && --countdown->second.left == 0) {
      m_failed = true;
      step.win32 = countdown->second.win32;
    }
    const bool bad = !paths.empty() && std::ranges::count(m_badPaths, std::pair(op, paths[0])) != 0;
    if (bad) step.win32 = my::kErrorDiskFull;
    return step;
  }

  std::lock_guard<std::mutex> Lock() const { return std::lock_guard(*m_lock); }

 private:
  struct CCountdown {
    int left;
    uint32_t win32;
  };

  std::function<void()> TakeMeanwhile(Op op) {
    const auto hold = Lock();
    return --m_workIn == 0 ? std::exchange(m_work, nullptr) : std::exchange(m_meanwhile[op], nullptr);
  }

  std::unique_ptr<std::mutex> m_lock = std::make_unique<std::mutex>();
  std::map<Op, std::function<void()>> m_meanwhile;
  int m_workIn = 0;
  std::function<void()> m_work;
  std::map<Op, CCountdown> m_countdowns;
  std::vector<std::pair<Op, std::wstring>> m_badPaths;
  std::vector<std::wstring> m_log;
  int m_crashIn = 0;
  bool m_crashed = false;
  bool m_failed = false;
};

}  // namespace test
