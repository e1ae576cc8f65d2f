#pragma once

#include <cstdint>
#include <string>

#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {

// The state of the run controller. The value is the id of its text.
enum class RunState : uint32_t {
  NotRun = IDS_STATE_NOT_RUN,
  Running = IDS_STATE_RUNNING,
  Stopping = IDS_STATE_STOPPING,  // a stop was requested, a job is still running
  Stopped = IDS_STATE_STOPPED,    // after a stop or a failed start
  Ended = IDS_STATE_ENDED         // without a stop, even if rows have errors
};

inline std::wstring TextOf(const my::IMessageTexts& texts, RunState state) {
  return texts.Text(static_cast<uint32_t>(state));
}

}  // namespace qlm
