#include "support/fake_ports.h"

#include <iconv.h>

#include <fstream>
#include <future>
#include <map>
#include <regex>
#include <thread>

#include "support/strings.h"

namespace test {
namespace {

// The text between the quotes of a resource script.
std::wstring Unquoted(const std::string& quoted) {
  std::string text;
  for (size_t at = 0; at < quoted.size(); ++at) {
    if (quoted[at] == '\\' || quoted[at] == '"') {
      ++at;
      text += quoted[at] == 'n' ? '\n' : quoted[at] == 't' ? '\t' : quoted[at];
    } else {
      text += quoted[at];
    }
  }
  return my::WideFromUtf8(text);
}

// Calls `take` with the two groups of every line that fits.
void ReadLines(const std::string& name, const std::regex& form,
               const std::function<void(const std::string&, const std::string&)>& take) {
  std::ifstream file(QLM_SOURCE_DIR "/res/" + name);
  if (!file) throw std::runtime_error("no file " + name);
  std::smatch match;
  for (std::string line; std::getline(file, line);) {
    if (std::regex_match(line, match, form)) take(match[1], match[2]);
  }
}

std::map<uint32_t, std::wstring> ReadTexts() {
  std::map<std::string, uint32_t> ids;
  std::map<uint32_t, std::wstring> texts;
  ReadLines("resource.h", std::regex("#define (IDS_\\w+)\\s+(\\d+)\\s*"),
            [&](const std::string& name, const std::string& id) { ids[name] = std::stoul(id); });
  ReadLines("strings.rc", std::regex("\\s*(IDS_\\w+) \"(.*)\"\\s*"),
            [&](const std::string& name, const std::string& text) { texts[ids.at(name)] = Unquoted(text); });
  return texts;
}

class CStdThread : public my::IRunningThread {
 public:
  explicit CStdThread(std::function<void()> body) : m_thread([this, work = std::move(body)] {
    work();
    m_done.set_value();
  }) {}
  ~CStdThread() override { m_thread.join(); }

  bool Wait(uint32_t timeOutMs) override {
    if (timeOutMs != my::kNoTimeOut) {
      return m_ended.wait_for(std::chrono::milliseconds(timeOutMs)) == std::future_status::ready;
    }
    m_ended.wait();
    return true;
  }

 private:
  std::promise<void> m_done;
  std::future<void> m_ended = m_done.get_future();
  std::thread m_thread;  // the last one: it uses the others
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

std::wstring CIconvAnsiCodec::Decode(std::string_view bytes) const {
  const std::unique_ptr<void, int (*)(iconv_t)> codec(::iconv_open("WCHAR_T", "CP932"), ::iconv_close);
  std::string input(bytes);
  std::wstring text(bytes.size(), L'\0');
  char* from = input.data();
  size_t left = input.size();
  auto* to = reinterpret_cast<char*>(text.data());
  size_t room = text.size() * sizeof(wchar_t);
  while (left > 0 && ::iconv(codec.get(), &from, &left, &to, &room) == static_cast<size_t>(-1)) {
    *reinterpret_cast<wchar_t*>(to) = my::kReplacementChar;
    to += sizeof(wchar_t);
    room -= sizeof(wchar_t);
    ++from;
    --left;
  }
  text.resize(text.size() - room / sizeof(wchar_t));
  return text;
}

uint32_t CFakeProcess::Run(const my::CProcessStart& start) {
  {
    const std::lock_guard hold(m_lock);
    m_starts.push_back(start);
  }
  return m_program ? m_program(start) : 0;
}

std::unique_ptr<my::IRunningThread> CStdThreads::Start(std::function<void()> body, int, my::CSystemError& error) {
  if (!m_fail) return std::make_unique<CStdThread>(std::move(body));
  error = my::CSystemError::FromWin32(8);
  return nullptr;
}

std::optional<std::wstring> CFakeConsole::ReadLine() {
  if (m_lines.empty()) return {};
  std::wstring line = std::move(m_lines.front());
  m_lines.pop_front();
  return line;
}

}  // namespace test
