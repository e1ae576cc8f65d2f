// The settings of one user, kept between program starts. The user-interface thread owns the one live
// CSettings object; a run gets copies. A default-constructed group holds the defaults.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "document/replace_options.h"
#include "settings/settings_enums.h"
#include "support/mru_strings.h"
#include "support/placement.h"
#include "support/value_codecs.h"

namespace qlm {

// Maximum length of each list of recently used strings.
inline constexpr size_t kMruMaximum = 20;

// Pixels, one entry per column from the left; empty: the default widths.
using CColumnWidthes = std::vector<int32_t>;

struct CMainFrameSetting {
  bool fullScreen = false;
  bool maximized = false;
  my::CRect normalBounds;  // of the restored window, also while it is maximized
  CColumnWidthes tasksColumnWidthes;
  CColumnWidthes dstsColumnWidthes;
  int32_t tasksFixSize = 0;  // height of the tasks pane in the main view, in pixels at 96 DPI
};

struct CColumnsDlgSetting : my::CPlacement {
  CColumnWidthes columnWidthes;
};

// The lists start with an empty text, so that the user can choose it.
struct CReplaceSetting : my::CPlacement {
  CReplaceOptions replace;
  my::CMruStrings srcs{kMruMaximum, {L""}};
  my::CMruStrings dsts{kMruMaximum, {L""}};
};

struct CArchiveSetting {
  std::wstring sevenZipPath;  // full path of the archiver; empty: not chosen
  PasswordType passwordType = PasswordType::EXEC_ONCE;
  bool hidePassword = true;
  std::wstring password;     // empty: ask; written to the file only with PasswordType::SAVE
  std::string passwordHash;  // MD5 of the last password (16 bytes); empty: none entered yet
};

struct CUISetting {
  std::wstring lastPath;  // the last open document; empty: none
  my::CMruStrings mruPathes{kMruMaximum};
  PowerOffType powerOffType = PowerOffType::POWEROFF;
  bool hybridShutdown = true;
  bool installUpdates = true;

  // Colours of row states, in the order of ResultState; not stored in the file.
  std::array<my::CColor, 4> stateColors{
      {{0x39, 0xC1, 0x14}, {0x1B, 0x83, 0xBB}, {0x6B, 0x6B, 0x6B}, {0xD6, 0x4A, 0x00}}};
};

struct CDesignSetting {
  my::CColor textColor{0xFF, 0xFF, 0xFF};
  BrushType bkBrushType = BrushType::DEFAULT;
  my::CColor bkBrushColor{0x61, 0x37, 0x2C};  // for BrushType::CUSTOM_COLOR
  std::wstring bkBrushPath;                   // for BrushType::CUSTOM_BK
  BkImgType bkImgType = BkImgType::OK;
  std::wstring bkImgPath;  // for BkImgType::CUSTOM
  FitType bkImgFitType = FitType::NONE;
  ImgOrigin bkImgOrigin = ImgOrigin::LB;
  bool showDesc = true;

  // Selects the image of BkImgType::DEFAULT. Constant while the program runs, not stored in the file.
  uint32_t random = 0;
};

struct CSettings {
  // Sets the random number of the design. `seed` should differ between program starts, like the tick count.
  explicit CSettings(uint64_t seed);

  CMainFrameSetting mainFrame;
  CColumnsDlgSetting taskDlg;
  my::CPlacement dstDlg;
  CColumnsDlgSetting resultDlg;
  CColumnsDlgSetting targetDlg;
  CColumnsDlgSetting filterDlg;
  CReplaceSetting replaceDlg;
  CArchiveSetting archive;
  CUISetting ui;
  CDesignSetting design;
};

}  // namespace qlm
