#include "support/fake_ports.h"

#include <algorithm>
#include <future>
#include <thread>

#include "support/names.h"
#include "support/strings.h"
#include "text_ids.h"

namespace test {
namespace {

std::map<uint32_t, std::wstring> ReadTexts() {
  const auto ids = ReadPairs("text_ids.h", std::regex("#define (IDS_\\w+)\\s+(\\d+)\\s*"));
  std::map<uint32_t, std::wstring> texts;
  for (const auto& [name, quoted] : ReadPairs("ja/strings.rc", std::regex("\\s*(IDS_\\w+) \"(.*)\"\\s*"))) {
    std::string text = std::regex_replace(quoted, std::regex("\\\\n"), "\n");
    text = std::regex_replace(text, std::regex("\"\""), "\"");
    text = std::regex_replace(text, std::regex(R"(\\\\)"), "\\");
    texts[std::stoul(ids.at(name))] = my::WideFromUtf8(text);
  }
  return texts;
}

struct CStdThread : my::IRunningThread {
  explicit CStdThread(std::function<void()> body) {
    std::packaged_task<void()> task(std::move(body));
    ended = task.get_future();
    std::thread(std::move(task)).detach();
  }

  bool Wait(uint32_t timeOutMs) override {
    if (timeOutMs == my::kNoTimeOut) return ended.wait(), true;
    return ended.wait_for(std::chrono::milliseconds(timeOutMs)) == std::future_status::ready;
  }

  uint32_t Id() const override { return 1; }

  std::future<void> ended;
};

}  // namespace

my::CCalendar CFakeClock::LocalCalendar(my::CFileTime time) const {
  constexpr int64_t kTicksPerMinute = 600'000'000;
  if (time.ticks >> 63 != 0) throw my::CException(my::CSystemError::FromWin32(87));
  return my::UtcCalendar({time.ticks + static_cast<uint64_t>(m_offsetMinutes * kTicksPerMinute)});
}

std::wstring CRcTexts::Text(uint32_t id) const {
  static const std::map<uint32_t, std::wstring> texts = ReadTexts();
  const auto found = texts.find(id);
  return found == texts.end() ? std::wstring() : found->second;
}

std::wstring CFakeAnsiCodec::Decode(std::string_view bytes) const {
  const std::string utf8 = std::regex_replace(std::string(bytes), std::regex("\x8E\x9A"), "字");
  return my::WideFromUtf8(std::regex_replace(utf8, std::regex("\xB1"), "ｱ"));
}

std::optional<std::string> CFakeAnsiCodec::Encode(std::wstring_view text) const {
  const std::string utf8 = my::Utf8FromWide(text);
  const std::string rest = std::regex_replace(utf8, std::regex("字"), "");
  if (std::ranges::any_of(rest, [](char c) { return (c & 0x80) != 0; })) return {};
  return std::regex_replace(utf8, std::regex("字"), "\x8E\x9A");
}

uint32_t CFakeProcess::Run(const my::CProcessStart& start) {
  {
    const std::lock_guard hold(m_lock);
    m_starts.push_back(start);
  }
  return m_program ? m_program(start) : 0;
}

std::unique_ptr<my::IRunningThread> CStdThreads::Start(std::function<void()> body, const my::CThreadStart&) {
  return std::make_unique<CStdThread>(std::move(body));
}

std::optional<std::wstring> CFakeConsole::ReadLine() {
  if (input.empty()) return {};
  std::wstring line = std::move(input.front());
  input.pop_front();
  return line;
}

}  // namespace test
