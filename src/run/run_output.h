// The output of the console runner: text for people or JSON for programs.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "engine/result.h"
#include "engine/run_state.h"

namespace my {
class IConsole;
class IMessageTexts;
}  // namespace my

namespace qlm {

struct CRunStatus {
  std::wstring text;
  RunState state = RunState::NotRun;
  size_t done = 0;   // rows
  size_t total = 0;  // rows
  uint64_t elapsedMs = 0;
};

struct CRunSummary {
  RunState state = RunState::Ended;  // or STOPPED
  size_t rows = 0;
  size_t errors = 0;
};

class IRunOutput {
 public:
  virtual ~IRunOutput() = default;
  virtual void Row(const CResult& row) = 0;
  virtual void Progress(const CRunStatus& status) = 0;
  virtual void End(const CRunSummary& summary) = 0;
};

// With `listOnly` each row shows its counts.
std::unique_ptr<IRunOutput> MakeTextOutput(my::IConsole& console, const my::IMessageTexts& texts,
                                           bool listOnly, bool quiet);
std::unique_ptr<IRunOutput> MakeJsonOutput(my::IConsole& console, const my::IMessageTexts& texts, bool quiet);

}  // namespace qlm
