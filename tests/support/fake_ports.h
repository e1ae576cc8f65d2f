// Doubles of the smaller ports.
#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <mutex>
#include <vector>

#include "engine/task_base.h"
#include "platform/ansi_codec.h"
#include "platform/clock.h"
#include "platform/console.h"
#include "platform/known_folders.h"
#include "platform/message_texts.h"
#include "platform/process.h"
#include "platform/threads.h"
#include "support/exception.h"

namespace test {

class CFakeClock : public my::IClock {
 public:
  void SetOffsetMinutes(int minutes) { m_offsetMinutes = minutes; }  // sets the user's time zone

  uint64_t TickCount() const override { return m_tick; }
  my::CFileTime Now() const override { return {131'016'350'490'000'000}; }  // 2016-03-05 07:04:09 UTC
  void Sleep(uint32_t ms) const override { m_tick += ms; }
  my::CCalendar LocalCalendar(my::CFileTime time) const override;

 private:
  mutable std::atomic<uint64_t> m_tick = 5'000'000;  // milliseconds since system start
  std::atomic<int> m_offsetMinutes = 0;
};

// The texts of the product.
class CRcTexts : public my::IMessageTexts {
 public:
  std::wstring Text(uint32_t id) const override;
  std::wstring SystemText(int32_t) const override { return L"system error"; }
};

// Knows two characters of code page 932.
class CFakeAnsiCodec : public my::IAnsiCodec {
 public:
  std::wstring Decode(std::string_view bytes) const override;
  std::optional<std::string> Encode(std::wstring_view text) const override;
};

struct CFakeFolders : my::IKnownFolders {
  std::optional<std::wstring> ProgramFiles() const override { return programs; }
  std::wstring RoamingAppData() const override {
    if (failure) throw *failure;
    return roaming;
  }
  std::wstring ProgramFolder() const override { return program; }

  std::optional<std::wstring> programs;
  std::wstring roaming = L"C:\\Roaming";
  std::optional<my::CException> failure;  // thrown by RoamingAppData
  std::wstring program = L"C:\\Quillmoor";
};

class CFakeProcess : public my::IProcess {
 public:
  using Program = std::function<uint32_t(const my::CProcessStart&)>;  // may throw what Run throws

  void OnRun(Program program) { m_program = std::move(program); }
  const std::vector<my::CProcessStart>& Starts() const { return m_starts; }

  uint32_t Run(const my::CProcessStart& start) override;

 private:
  std::mutex m_lock;
  std::vector<my::CProcessStart> m_starts;
  Program m_program;
};

class CStdThreads : public my::IThreads {
 public:
  std::unique_ptr<my::IRunningThread> Start(std::function<void()> body,
                                            const my::CThreadStart& start) override;
};

// Requests a stop after this number of questions.
class CStopAfter : public my::IStopQuery {
 public:
  explicit CStopAfter(int questions) : m_left(questions) {}
  bool IsStopRequested() const override { return m_left-- <= 0; }

 private:
  mutable std::atomic<int> m_left;
};

struct CFakeConsole : my::IConsole {
  bool IsTerminal(Stream) const override { return terminal; }
  void Write(Stream stream, std::wstring_view text) override {
    (stream == Stream::Output ? output : errors) += text;
  }
  std::optional<std::wstring> ReadLine() override;
  bool InterruptRequested() const override { return interrupted; }

  bool terminal = false;
  std::deque<std::wstring> input;
  std::wstring output;
  std::wstring errors;
  std::atomic<bool> interrupted = false;
};

}  // namespace test
