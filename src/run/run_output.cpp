#include "run/run_output.h"

#include "engine/remedy.h"
#include "platform/console.h"
#include "platform/message_texts.h"
#include "run/json_values.h"
#include "support/strings.h"
#include "text_ids.h"

namespace qlm {
namespace {

constexpr auto kOutput = my::IConsole::Stream::Output;

std::wstring CountsText(const my::IMessageTexts& texts, const CTargets& targets) {
  const CTargetCounts counts = CountTargets(targets);
  const my::CMsgArg args[] = {std::to_wstring(targets.size()), std::to_wstring(counts.folders),
                              std::to_wstring(counts.counted), std::to_wstring(counts.excluded)};
  return my::MakeText(texts, IDS_COUNTS, args);
}

class CTextOutput : public IRunOutput {
 public:
  CTextOutput(my::IConsole& console, const my::IMessageTexts& texts, bool listOnly, bool quiet)
      : m_console(console),
        m_texts(texts),
        m_listOnly(listOnly),
        m_quiet(quiet),
        m_showProgress(!quiet && console.IsTerminal(kOutput)) {}

  void Row(const CResult& row) override {
    if (m_quiet && !row.error) return;
    // There is no destination path before the source is listed; the row is then named by its source.
    const std::wstring& path = row.destinationPath.empty() ? row.task->path : row.destinationPath;
    std::wstring line = row.task->id + L" | " + path + L" | " + ResultText(m_texts, row);
    const bool counts = m_listOnly || row.error.code == IDS_NO_FILES;  // a filter may exclude everything
    if (counts && row.targets->size() != 0) line += L" | " + CountsText(m_texts, *row.targets);
    ClearProgress();
    m_console.Write(kOutput, line + L"\n");
    if (row.error) m_console.Write(kOutput, L"    " + RemedyLine(m_texts, row.error) + L"\n");
  }

  void Progress(const CRunStatus& status) override {
    if (!m_showProgress) return;
    ClearProgress();
    m_console.Write(kOutput, status.text);
    m_progressLength = status.text.size();
  }

  void End(const CRunSummary& summary) override {
    ClearProgress();
    if (m_quiet) return;
    const my::CMsgArg args[] = {TextOf(m_texts, summary.state), std::to_wstring(summary.rows),
                                std::to_wstring(summary.errors)};
    m_console.Write(kOutput, my::MakeText(m_texts, IDS_RUN_SUMMARY, args) + L"\n");
  }

 private:
  // Overwrites the line with twice as many spaces as it has characters, because Japanese ones are two columns
  // wide.
  void ClearProgress() {
    if (m_progressLength == 0) return;
    m_console.Write(kOutput, L"\r" + std::wstring(2 * m_progressLength, L' ') + L"\r");
    m_progressLength = 0;
  }

  my::IConsole& m_console;
  const my::IMessageTexts& m_texts;
  bool m_listOnly;
  bool m_quiet;
  bool m_showProgress;
  size_t m_progressLength = 0;
};

class CJsonOutput : public IRunOutput {
 public:
  CJsonOutput(my::IConsole& console, const my::IMessageTexts& texts, bool quiet)
      : m_console(console), m_texts(texts), m_quiet(quiet) {}

  void Row(const CResult& row) override {
    if (m_quiet && !row.error) return;
    const CTargetCounts counts = CountTargets(*row.targets);
    const CDst* const dst = row.Dst();
    Print({{"event", "row"},
           {"task", my::Utf8FromWide(row.task->id)},
           {"destination", my::Utf8FromWide(row.destinationPath)},
           {"type", dst ? TypeName(*dst) : ""},
           {"phase", row.phase},
           {"message", my::Utf8FromWide(ResultText(m_texts, row))},
           {"error", row.error.code},
           {"remedy", my::Utf8FromWide(RemedyLine(m_texts, row.error))},
           {"newest", IsoTime(row.newestWriteTime)},
           {"entries", row.targets->size()},
           {"counted", counts.counted},
           {"excluded", counts.excluded}});
  }

  void Progress(const CRunStatus& status) override {
    constexpr uint64_t kIntervalMs = 100;  // at most ten a second
    if (m_quiet || (m_anyProgress && status.elapsedMs < m_lastProgressMs + kIntervalMs)) return;
    m_anyProgress = true;
    m_lastProgressMs = status.elapsedMs;
    Print({{"event", "progress"},
           {"done", status.done},
           {"total", status.total},
           {"elapsed_ms", status.elapsedMs},
           {"state", status.state}});
  }

  void End(const CRunSummary& summary) override {
    Print({{"event", "end"}, {"state", summary.state}, {"rows", summary.rows}, {"errors", summary.errors}});
  }

 private:
  void Print(const nlohmann::ordered_json& object) {
    m_console.Write(kOutput, my::WideFromUtf8(object.dump()) + L"\n");
  }

  my::IConsole& m_console;
  const my::IMessageTexts& m_texts;
  bool m_quiet;
  bool m_anyProgress = false;
  uint64_t m_lastProgressMs = 0;
};

}  // namespace

std::unique_ptr<IRunOutput> MakeTextOutput(my::IConsole& console, const my::IMessageTexts& texts,
                                           bool listOnly, bool quiet) {
  return std::make_unique<CTextOutput>(console, texts, listOnly, quiet);
}

std::unique_ptr<IRunOutput> MakeJsonOutput(my::IConsole& console, const my::IMessageTexts& texts,
                                           bool quiet) {
  return std::make_unique<CJsonOutput>(console, texts, quiet);
}

}  // namespace qlm
