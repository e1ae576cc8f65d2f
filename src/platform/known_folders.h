#pragma once

#include <optional>
#include <string>

namespace my {

class IKnownFolders {
 public:
  virtual ~IKnownFolders() = default;

  // The folder of installed 32-bit programs; no value if the system cannot tell.
  virtual std::optional<std::wstring> ProgramFiles() const = 0;

  // The user's roaming application data. Throws IDS_SETTINGS_LOCATION_FAILED.
  virtual std::wstring RoamingAppData() const = 0;

  // The folder that the running program was started from. Throws the system's own error.
  virtual std::wstring ProgramFolder() const = 0;
};

}  // namespace my
