#pragma once

#include <cstdint>

#include "platform/win32/notification.h"

namespace my {

// Shows a notification of a program without windows. Returns when the user has closed it, or after the limit;
// ending the program earlier would remove it.
void ShowStandaloneNotice(const CNotice& notice, uint32_t limitMs);

}  // namespace my
