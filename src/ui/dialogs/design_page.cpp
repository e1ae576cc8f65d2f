#include "ui/dialogs/design_page.h"

#include <commdlg.h>
#include <vssym32.h>

#include <algorithm>
#include <utility>

#include "app/command.h"
#include "app/messenger.h"
#include "control_ids.h"
#include "platform/message_texts.h"
#include "support/exception.h"
#include "support/strings.h"
#include "text_ids.h"
#include "ui/framework/colors.h"
#include "ui/framework/controls.h"
#include "ui/framework/dpi.h"
#include "ui/framework/file_dialogs.h"
#include "ui/framework/theme.h"

namespace qlm {
namespace {

constexpr int kSwatchMargin = 4;  // pixels at 96 DPI

bool HasColor(BrushType type) {
  return type == BrushType::CUSTOM_COLOR || type >= BrushType::CHECK;
}

bool UsesBrushOf(const CDesignSetting& a, const CDesignSetting& b) {
  return a.bkBrushType == b.bkBrushType && a.bkBrushPath == b.bkBrushPath;
}

bool UsesImageOf(const CDesignSetting& a, const CDesignSetting& b) {
  return a.bkImgType == b.bkImgType && a.bkImgPath == b.bkImgPath;
}

bool Names(const my::CException& failure, const std::wstring& path) {
  const auto& args = failure.Args();
  return std::find(args.begin(), args.end(), my::CMsgArg(path)) != args.end();
}

// Shows the system's colour dialog, which keeps the custom colours until the program ends.
std::optional<my::CColor> AskColor(HWND owner, my::CColor color) {
  static COLORREF custom[16] = {};
  CHOOSECOLORW choice{};
  choice.lStructSize = sizeof choice;
  choice.hwndOwner = owner;
  choice.rgbResult = my::ColorRef(color);
  choice.lpCustColors = custom;
  choice.Flags = CC_RGBINIT | CC_FULLOPEN;
  if (!::ChooseColorW(&choice)) return {};
  return my::ColorOfRef(choice.rgbResult);
}

void DrawPushButton(const DRAWITEMSTRUCT& draw, bool disabled, UINT dpi) {
  const bool pressed = (draw.itemState & ODS_SELECTED) != 0;
  RECT rect = draw.rcItem;
  const my::CTheme theme = my::OpenTheme(L"BUTTON", dpi);
  if (!theme) {
    ::DrawFrameControl(draw.hDC, &rect, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0U));
    return;
  }
  const int state = disabled ? PBS_DISABLED : pressed ? PBS_PRESSED : PBS_NORMAL;
  my::DrawParentBackground(draw.hwndItem, draw.hDC, rect);
  my::DrawThemed(theme.Get(), draw.hDC, BP_PUSHBUTTON, state, rect);
}

}  // namespace

CDesignPage::CDesignPage(CAppContext& context, CDesignPreview preview)
    : CSettingsPage(IDD_DESIGN_PAGE), m_context(context), m_preview(std::move(preview)) {}

std::wstring CDesignPage::Title() const {
  return m_context.ports.engine.texts.Text(IDS_DESIGN_PAGE);
}

void CDesignPage::Store(CSettings& settings) {
  Check(m_design, !UsesBrushOf(m_design, settings.design), !UsesImageOf(m_design, settings.design));
  settings.design = m_design;
}

// Checks the image paths. Only a changed one is refused: an accepted picture may be on a drive that is
// disconnected now.
void CDesignPage::Check(const CDesignSetting& design, bool newBrush, bool newImage) {
  try {
    m_preview(design);
    return;
  } catch (const my::CException& failure) {
    const bool isBrush = design.bkBrushType == BrushType::CUSTOM_BK && Names(failure, design.bkBrushPath);
    m_refused = isBrush ? IDC_BRUSH_PATH : IDC_IMAGE_PATH;
    if (isBrush ? newBrush : newImage) throw;
    if (!isBrush || !newImage) return;
  }
  // The failure of the brush may have hidden a failure of the image.
  CDesignSetting withoutBrush = design;
  withoutBrush.bkBrushType = BrushType::DEFAULT;
  Check(withoutBrush, false, true);
  Show();
}

void CDesignPage::FocusRefused() {
  FocusItem(m_refused);
}

my::CBox CDesignPage::Layout() const {
  using my::Field, my::Group, my::Control;
  constexpr int kSwatch = 12;  // characters
  return my::Column(
      {Group(IDC_TEXT_GROUP, {Field(Control(IDC_TEXT_COLOR).Chars(kSwatch)), Control(IDC_SHOW_DESCRIPTION)}),
       my::Space(),
       Group(IDC_BRUSH_GROUP, {Field(IDC_BRUSH_TYPE), Field(Control(IDC_BRUSH_COLOR).Chars(kSwatch)),
                               Field(Control(IDC_BRUSH_PATH).Wide(), {Control(IDC_BRUSH_BROWSE)})}),
       my::Space(),
       Group(IDC_IMAGE_GROUP,
             {Field(IDC_IMAGE_TYPE), Field(Control(IDC_IMAGE_PATH).Wide(), {Control(IDC_IMAGE_BROWSE)}),
              Field(IDC_IMAGE_FIT), Field(IDC_IMAGE_ORIGIN)})});
}

bool CDesignPage::OnInit() {
  m_design = m_context.settings.design;
  my::FillFromTexts(Item(IDC_BRUSH_TYPE), m_context.ports.engine.texts, kBrushTypeTexts,
                    m_design.bkBrushType);
  my::FillFromTexts(Item(IDC_IMAGE_TYPE), m_context.ports.engine.texts, kBkImgTypeTexts, m_design.bkImgType);
  my::FillFromTexts(Item(IDC_IMAGE_FIT), m_context.ports.engine.texts, kFitTypeTexts, m_design.bkImgFitType);
  my::FillFromTexts(Item(IDC_IMAGE_ORIGIN), m_context.ports.engine.texts, kImgOriginTexts,
                    m_design.bkImgOrigin);
  SetItemText(IDC_BRUSH_PATH, m_design.bkBrushPath);
  SetItemText(IDC_IMAGE_PATH, m_design.bkImgPath);
  SetChecked(IDC_SHOW_DESCRIPTION, m_design.showDesc);
  NameColors();
  EnableControls();
  return false;
}

bool CDesignPage::OnCommand(int id, int code) {
  switch (id) {
    case IDC_BRUSH_PATH:
    case IDC_IMAGE_PATH: return OnPath(id, code);
    case IDC_BRUSH_TYPE:
    case IDC_IMAGE_TYPE:
    case IDC_IMAGE_FIT:
    case IDC_IMAGE_ORIGIN:
      if (code != CBN_SELCHANGE) return false;
      OnChosen();
      return true;
    case IDC_TEXT_COLOR:
    case IDC_BRUSH_COLOR: OnColor(id); return true;
    case IDC_BRUSH_BROWSE: Browse(IDC_BRUSH_PATH); return true;
    case IDC_IMAGE_BROWSE: Browse(IDC_IMAGE_PATH); return true;
    case IDC_SHOW_DESCRIPTION:
      m_design.showDesc = IsChecked(id);
      Edited();
      return true;
    default: return false;
  }
}

void CDesignPage::OnChosen() {
  m_design.bkBrushType = static_cast<BrushType>(my::Chosen(Item(IDC_BRUSH_TYPE)));
  m_design.bkImgType = static_cast<BkImgType>(my::Chosen(Item(IDC_IMAGE_TYPE)));
  m_design.bkImgFitType = static_cast<FitType>(my::Chosen(Item(IDC_IMAGE_FIT)));
  m_design.bkImgOrigin = static_cast<ImgOrigin>(my::Chosen(Item(IDC_IMAGE_ORIGIN)));
  EnableControls();
  Edited();
}

// The path is not checked while it is being typed, because an incomplete one may name a slow server.
bool CDesignPage::OnPath(int id, int code) {
  if (code == EN_CHANGE) {
    (id == IDC_BRUSH_PATH ? m_design.bkBrushPath : m_design.bkImgPath) = PathIn(id);
    ReportChange();
  }
  if (code == EN_KILLFOCUS) Show();
  return true;
}

void CDesignPage::OnColor(int id) {
  my::CColor& color = ColorOf(id);
  const auto chosen = AskColor(::GetAncestor(Hwnd(), GA_ROOT), color);
  if (!chosen) return;
  color = *chosen;
  NameColors();
  ::InvalidateRect(Item(id), nullptr, FALSE);
  Edited();
}

void CDesignPage::Browse(int pathId) {
  my::CFileDialogParams params;
  params.kinds = {{m_context.ports.engine.texts.Text(IDS_IMAGE_FILES), L"*.png;*.jpg;*.jpeg;*.bmp;*.gif"}};
  params.initialPath = PathIn(pathId);
  params.flags |= OFN_FILEMUSTEXIST;
  const auto path = my::AskOpenPath(::GetAncestor(Hwnd(), GA_ROOT), params);
  if (!path) return;
  SetItemText(pathId, *path);
  try {
    m_preview(m_design);
  } catch (const my::CException& failure) {
    m_context.messenger.ShowError(failure);
  }
}

void CDesignPage::EnableControls() {
  const bool color = HasColor(m_design.bkBrushType);
  const bool brush = m_design.bkBrushType == BrushType::CUSTOM_BK;
  const bool picture = m_design.bkImgType == BkImgType::CUSTOM;
  const bool image = m_design.bkImgType != BkImgType::NONE;
  EnableField(IDC_TEXT_COLOR, m_design.bkBrushType != BrushType::OS_DEFAULT);
  EnableField(IDC_BRUSH_COLOR, color);
  EnableField(IDC_BRUSH_PATH, brush);
  EnableItem(IDC_BRUSH_BROWSE, brush);
  EnableField(IDC_IMAGE_PATH, picture);
  EnableItem(IDC_IMAGE_BROWSE, picture);
  EnableField(IDC_IMAGE_FIT, image);
  EnableField(IDC_IMAGE_ORIGIN, image);
}

void CDesignPage::Edited() {
  Show();
  ReportChange();
}

// Errors are reported only when the design is stored.
void CDesignPage::Show() {
  try {
    m_preview(m_design);
  } catch (const my::CException&) {
    return;
  }
}

std::optional<LRESULT> CDesignPage::OnMessage(UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_DRAWITEM) return {};
  DrawSwatch(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
  return TRUE;
}

void CDesignPage::DrawSwatch(const DRAWITEMSTRUCT& draw) {
  const HDC dc = draw.hDC;
  RECT rect = draw.rcItem;
  const bool disabled = (draw.itemState & ODS_DISABLED) != 0;
  DrawPushButton(draw, disabled, Dpi());
  const int margin = my::Scale(kSwatchMargin, Dpi());
  ::InflateRect(&rect, -margin, -margin);
  if ((draw.itemState & (ODS_FOCUS | ODS_NOFOCUSRECT)) == ODS_FOCUS) ::DrawFocusRect(dc, &rect);
  ::InflateRect(&rect, -margin / 2, -margin / 2);
  if (disabled) return;
  const my::CColor color = ColorOf(static_cast<int>(draw.CtlID));
  const my::CBrush brush(::CreateSolidBrush(my::ColorRef(color)));
  // In the colour of text, because a lighter border would not show around white.
  ::FillRect(dc, &rect, ::GetSysColorBrush(COLOR_BTNTEXT));
  const int border = my::Scale(1, Dpi());
  ::InflateRect(&rect, -border, -border);
  ::FillRect(dc, &rect, brush.Get());
}

// Screen readers speak the text of a button.
void CDesignPage::NameColors() {
  const my::IMessageTexts& texts = m_context.ports.engine.texts;
  const auto name = [&](int id, uint32_t textId, my::CColor color) {
    const my::CMsgArg value = my::ColorText(color);
    SetItemText(id, my::MakeText(texts, textId, {&value, 1}));
  };
  name(IDC_TEXT_COLOR, IDS_TEXT_COLOR, m_design.textColor);
  name(IDC_BRUSH_COLOR, IDS_BRUSH_COLOR, m_design.bkBrushColor);
}

my::CColor& CDesignPage::ColorOf(int id) {
  return id == IDC_TEXT_COLOR ? m_design.textColor : m_design.bkBrushColor;
}

// Returns the path without the quotation marks that the file manager adds when copying it.
std::wstring CDesignPage::PathIn(int id) const {
  const std::wstring text = ItemText(id);
  return std::wstring(my::Trim(text, L" \t\r\n\""));
}

}  // namespace qlm
