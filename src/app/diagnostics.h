// What a report of a problem needs to know about the program.
#pragma once

#include <string>

namespace qlm {

struct CAppContext;

// Returns the linked libraries with their versions.
std::wstring LibrariesText();

// Returns versions, settings that matter, and the errors of the last run. It names no files of the user and
// no password. `system` and `archiver` describe the system and the version of the archiver.
std::wstring DiagnosticsText(const CAppContext& context, const std::wstring& system,
                             const std::wstring& archiver);

}  // namespace qlm
