#pragma once

#include <cstdint>
#include <string>

#include "platform/message_texts.h"
#include "text_ids.h"

namespace qlm {

// Where the run controller is. The value is the id of the state's text.
enum class RunState : uint32_t {
  NOT_RUN = IDS_STATE_NOT_RUN,
  RUNNING = IDS_STATE_RUNNING,
  STOPPING = IDS_STATE_STOPPING,  // a stop was requested, jobs still end
  STOPPED = IDS_STATE_STOPPED,    // after a stop, or the start failed
  ENDED = IDS_STATE_ENDED         // without a stop, even if rows have errors
};

inline std::wstring TextOf(const my::IMessageTexts& texts, RunState state) {
  return texts.Text(static_cast<uint32_t>(state));
}

}  // namespace qlm
