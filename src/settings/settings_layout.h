// The layout of the settings file: the fields of each group by element name, in file order. Reading and
// writing visit the same descriptions (settings_codec.h).
#pragma once

#include "settings/settings.h"

namespace qlm {

// The first file version with the group of the replace tool.
inline constexpr my::CVersion kReplaceDlgSince{1, 0, 1, 0};

template <class Visitor>
void Describe(const Visitor& v, my::CRect& rect) {
  v.Int(L"left", rect.left);
  v.Int(L"top", rect.top);
  v.Int(L"right", rect.right);
  v.Int(L"bottom", rect.bottom);
}

template <class Visitor>
void Describe(const Visitor& v, CMainFrameSetting& s) {
  v.Bool(L"FullScreen", s.fullScreen);
  v.Bool(L"Maximized", s.maximized);
  v.Group(L"NormalBounds", s.normalBounds);
  v.Ints(L"TasksColumnWidthes", L"Width", s.tasksColumnWidthes);
  v.Ints(L"DstsColumnWidthes", L"Width", s.dstsColumnWidthes);
  v.Int(L"TasksFixSize", s.tasksFixSize);
}

template <class Visitor>
void Describe(const Visitor& v, my::CPlacement& s) {
  v.Bool(L"Maximized", s.maximized);
  v.Group(L"Rect", s.rect);
}

template <class Visitor>
void Describe(const Visitor& v, CColumnsDlgSetting& s) {
  Describe(v, static_cast<my::CPlacement&>(s));
  v.Ints(L"ColumnWidthes", L"Width", s.columnWidthes);
}

template <class Visitor>
void Describe(const Visitor& v, CReplaceOptions& s) {
  v.Enum(L"Row", kReplaceRowNames, s.row);
  v.Flags(L"Col", kReplaceColNames, s.col);
  v.Text(L"Src", s.src);
  v.Text(L"Dst", s.dst);
  v.Bool(L"Regex", s.regex);
  v.Bool(L"Preview", s.preview);
}

template <class Visitor>
void Describe(const Visitor& v, CReplaceSetting& s) {
  Describe(v, static_cast<my::CPlacement&>(s));
  v.Group(L"Replace", s.replace);
  v.Strings(L"Srcs", L"Src", s.srcs);
  v.Strings(L"Dsts", L"Dst", s.dsts);
}

template <class Visitor>
void Describe(const Visitor& v, CArchiveSetting& s) {
  v.Text(L"SevenZipPath", s.sevenZipPath);
  v.Enum(L"PasswordType", kPasswordTypeNames, s.passwordType);
  v.Bool(L"HidePassword", s.hidePassword);
  v.Text(L"Password", s.password);
  v.Bytes(L"PasswordHash", s.passwordHash);
}

template <class Visitor>
void Describe(const Visitor& v, CUISetting& s) {
  v.Text(L"LastPath", s.lastPath);
  v.Strings(L"MruPathes", L"Path", s.mruPathes);
  v.Enum(L"PowerOffType", kPowerOffTypeNames, s.powerOffType);
  v.Bool(L"HybridShutdown", s.hybridShutdown);
  v.Bool(L"InstallUpdates", s.installUpdates);
}

template <class Visitor>
void Describe(const Visitor& v, CDesignSetting& s) {
  v.Color(L"TextColor", s.textColor);
  v.Enum(L"BkBrushType", kBrushTypeNames, s.bkBrushType);
  v.Color(L"BkBrushColor", s.bkBrushColor);
  v.Text(L"BkBrushPath", s.bkBrushPath);
  v.Enum(L"BkImgType", kBkImgTypeNames, s.bkImgType);
  v.Text(L"BkImgPath", s.bkImgPath);
  v.Enum(L"BkImgFitType", kFitTypeNames, s.bkImgFitType);
  v.Enum(L"BkImgOrigin", kImgOriginNames, s.bkImgOrigin);
  v.Bool(L"ShowDesc", s.showDesc);
}

// Visits the groups up to "Archive", the last one that a run needs.
template <class Visitor>
void DescribeToArchive(const Visitor& v, CSettings& s) {
  v.Group(L"MainFrame", s.mainFrame);
  v.Group(L"TaskDlg", s.taskDlg);
  v.Group(L"DstDlg", s.dstDlg);
  v.Group(L"ResultDlg", s.resultDlg);
  v.Group(L"TargetDlg", s.targetDlg);
  v.Group(L"FilterDlg", s.filterDlg);
  v.GroupSince(kReplaceDlgSince, L"ReplaceDlg", s.replaceDlg);
  v.Group(L"Archive", s.archive);
}

template <class Visitor>
void DescribeRest(const Visitor& v, CSettings& s) {
  v.Group(L"UI", s.ui);
  v.Group(L"Design", s.design);
}

template <class Visitor>
void Describe(const Visitor& v, CSettings& s) {
  DescribeToArchive(v, s);
  DescribeRest(v, s);
}

}  // namespace qlm
