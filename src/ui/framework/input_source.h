#pragma once

namespace my {

// Returns whether the message that is being handled comes from a mouse, a pen or a finger.
bool IsMouseInput();

}  // namespace my
