#pragma once

#include <string>

namespace qlm {

// Throws IDS_PASSWORD_BAD_CHARACTER if the archiver would not receive the password as one argument: after a
// space it would read the rest as the path of the archive.
void CheckPassword(const std::wstring& password);

}  // namespace qlm
