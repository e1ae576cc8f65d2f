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

// The file version that SaveSettings writes.
inline constexpr my::CVersion kSettingsVersion{1, 0, 1, 0};

// Returns the path of the user's settings file. Throws IDS_SETTINGS_LOCATION_FAILED.
std::wstring SettingsPath(const my::IKnownFolders& folders, const my::IMessageTexts& texts);

// Reads the file into `live`, group by group, and returns the version of the file, which may be newer than
// kSettingsVersion. Stops at the first failure: groups before it have the file's values, this group and later
// ones are unchanged. A password that must not be stored is dropped in any case. Throws the errors of the XML
// layer, with the path of the file.
my::CVersion LoadSettings(my::IFileSystem& files, my::IXmlDom& dom, const std::wstring& path,
                          CSettings& live);

struct CArchiveLoad {
  CArchiveSetting archive;
  std::optional<my::CException> laterFailure;  // the failure of a later group, which a run does not need
};

// Reads the archive settings. Throws what LoadSettings throws for the groups up to "Archive".
CArchiveLoad LoadArchiveSetting(my::IFileSystem& files, my::IXmlDom& dom, const std::wstring& path);

// Writes the file and creates its folder if it is missing (IDS_CREATE_FOLDER_FAILED). The password is omitted
// unless the user wants it stored; texts that XML cannot represent are omitted too. If an error of the XML
// layer is thrown, the old file is unchanged.
void SaveSettings(my::IFileSystem& files, const my::IClock& clock, my::IXmlDom& dom, const std::wstring& path,
                  const CSettings& settings);

}  // namespace qlm
