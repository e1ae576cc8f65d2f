#pragma once

#include <cstdint>

#include "platform/win32/notification.h"

namespace my {

// How long a notification of a program without windows waits for the user, and then stays. Milliseconds.
struct CNoticeLimits {
  uint32_t absentMs = 12 * 60 * 60 * 1000;
  uint32_t shownMs = 20'000;
};

// Shows a notification of a program without windows, when the user is there to see it: one that is shown at
// night would be gone in the morning. Does nothing where no user can be. Returns when the user has closed it,
// or after the limit; ending the program earlier would remove it.
void ShowStandaloneNotice(const CNotice& notice, const CNoticeLimits& limits = {});

}  // namespace my
