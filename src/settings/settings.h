// The settings of one user: what the dialogs and views remember from one start of the program to the next.
// One live object of CSettings belongs to the user-interface thread; a run takes copies of what it needs.
// A freshly built group holds the defaults.
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

// How many entries each list of recently used strings has at most.
inline constexpr size_t kMruMaximum = 20;

// Pixels, one entry per column from the left; empty: the built-in widths.
using CColumnWidthes = std::vector<int32_t>;

struct CMainFrameSetting {
  bool fullScreen = false;
  bool maximized = false;
  my::CRect normalBounds;  // of the restored window, not of the maximized one
  CColumnWidthes tasksColumnWidthes;
  CColumnWidthes dstsColumnWidthes;
  int32_t tasksFixSize = 0;  // pixels that the tasks pane takes of the main view
};

struct CColumnsDlgSetting : my::CPlacement {
  CColumnWidthes columnWidthes;
};

// The lists start with the empty text, so that the user can choose it.
struct CReplaceSetting : my::CPlacement {
  CReplaceOptions replace;
  my::CMruStrings srcs{kMruMaximum, {L""}};
  my::CMruStrings dsts{kMruMaximum, {L""}};
};

struct CArchiveSetting {
  std::wstring sevenZipPath;  // full path of the archiver; empty: not chosen
  PasswordType passwordType = PasswordType::EXEC_ONCE;
  bool hidePassword = true;
  std::wstring password;     // empty: to be asked for; reaches the file only with PasswordType::SAVE
  std::string passwordHash;  // the 16 bytes of the MD5 of the last password; empty: none entered yet
};

struct CUISetting {
  std::wstring lastPath;  // of the document that was open last; empty: none
  my::CMruStrings mruPathes{kMruMaximum};
  PowerOffType powerOffType = PowerOffType::POWEROFF;
  bool hybridShutdown = true;
  bool installUpdates = true;

  // By which the main view tells the states of its rows apart; not in the file.
  std::array<my::CColor, 4> stateColors{
      {{0x39, 0xC1, 0x14}, {0x1B, 0x83, 0xBB}, {0x6B, 0x6B, 0x6B}, {0xD6, 0x4A, 0x00}}};
};

struct CDesignSetting {
  my::CColor textColor{0xFF, 0xFF, 0xFF};
  BrushType bkBrushType = BrushType::DEFAULT;
  my::CColor bkBrushColor{0x61, 0x37, 0x2C};  // of BrushType::CUSTOM_COLOR
  std::wstring bkBrushPath;                   // of BrushType::CUSTOM_BK
  BkImgType bkImgType = BkImgType::OK;
  std::wstring bkImgPath;  // of BkImgType::CUSTOM
  FitType bkImgFitType = FitType::NONE;
  ImgOrigin bkImgOrigin = ImgOrigin::LB;
  bool showDesc = true;

  // Picks the image of BkImgType::DEFAULT; the same for the whole run of the program, not in the file.
  uint32_t random = 0;
};

struct CSettings {
  // Draws the random number of the design; `seed` is anything that differs from one start of the program to
  // the next, such as the tick count.
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
