#pragma once

namespace my {

// The application user model id of the programs. Setup gives it to the shortcut and to the document type.
inline constexpr wchar_t kAppIdentity[] = L"Tenkowa.Quillmoor";

// Sets the id of the process, by which the system groups windows in the taskbar and finds the jump list and
// the name of notifications. To be called before any window is created. A failure is ignored.
void SetAppIdentity();

}  // namespace my
