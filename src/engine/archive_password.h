#pragma once

#include <string>

namespace qlm {

// Throws IDS_PASSWORD_BAD_CHARACTER for a password that would not reach the archiver as one argument: the
// archiver would take what follows a space for the archive's name.
void CheckPassword(const std::wstring& password);

}  // namespace qlm
