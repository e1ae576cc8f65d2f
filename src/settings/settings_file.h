#pragma once

#include <optional>
#include <string>

#include "settings/settings.h"
#include "support/exception.h"
#include "support/value_codecs.h"

namespace my {
class IClock;
class IFileSystem;
class IKnownFolders;
class IMessageTexts;
class IXmlDom;
}  // namespace my

namespace qlm {

// The version of the format that SaveSettings writes.
inline constexpr my::CVersion kSettingsVersion{1, 0, 1, 0};

// The file of the current user. Throws IDS_SETTINGS_LOCATION_FAILED.
std::wstring SettingsPath(const my::IKnownFolders& folders, const my::IMessageTexts& texts);

// Reads the file into the live object, group by group, and answers the file's version, which may be newer
// than kSettingsVersion. It stops at the first failure: the groups before the one that failed then hold the
// file's values, that one and those behind it are as they were. A password that is not to be stored is
// dropped in any case. Throws the XML layer's messages; the failure's text names the file.
my::CVersion LoadSettings(my::IFileSystem& files, my::IXmlDom& dom, const std::wstring& path,
                          CSettings& live);

struct CArchiveLoad {
  CArchiveSetting archive;
  std::optional<my::CException> laterFailure;  // of a group that a run does not need
};

// Reads what a run needs of the file. Throws what LoadSettings throws for the groups up to "Archive".
CArchiveLoad LoadArchiveSetting(my::IFileSystem& files, my::IXmlDom& dom, const std::wstring& path);

// Writes the file, and makes its folder when there is none (IDS_CREATE_FOLDER_FAILED). The password is left
// out unless the user wants it stored, and so is a text that XML cannot carry. A failure (the XML layer's
// messages) leaves the old file as it was.
void SaveSettings(my::IFileSystem& files, const my::IClock& clock, my::IXmlDom& dom, const std::wstring& path,
                  const CSettings& settings);

}  // namespace qlm
