#include "ui/framework/layout.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string_view>
#include <utility>

#include "ui/framework/combo_texts.h"
#include "ui/framework/gdi.h"

namespace my {
namespace {

// Returns the rectangle that sets the size of the control; for a drop-down list it includes the open list.
RECT DesignRect(HWND control) {
  RECT rect{};
  ::GetWindowRect(control, &rect);
  wchar_t name[16]{};
  ::GetClassNameW(control, name, static_cast<int>(std::size(name)));
  RECT dropped{};
  if (std::wstring_view(name) == L"ComboBox" &&
      ::SendMessageW(control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped)) != 0)
    rect.bottom = std::max(rect.bottom, rect.top + (dropped.bottom - dropped.top));
  ::MapWindowPoints(nullptr, ::GetParent(control), reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

int Pixels(double units, double unit, double extra, int share) {
  return static_cast<int>(std::lround(units * unit + extra * share / 100));
}

}  // namespace

CDialogUnits UnitsOf(HFONT font) {
  constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const CWindowDc dc(nullptr);
  const CSelect select(dc.Get(), font);
  SIZE size{};
  TEXTMETRICW metrics{};
  ::GetTextExtentPoint32W(dc.Get(), kLetters.data(), static_cast<int>(kLetters.size()), &size);
  ::GetTextMetricsW(dc.Get(), &metrics);
  return {static_cast<double>(size.cx) / kLetters.size() / 4, metrics.tmHeight / 8.0};
}

void CLayout::Capture(HWND window, const CDialogUnits& units, std::vector<CAnchor> anchors) {
  m_anchors = std::move(anchors);
  m_places.clear();
  RECT client{};
  ::GetClientRect(window, &client);
  m_width = client.right / units.x;
  m_height = client.bottom / units.y;
  for (HWND control = ::GetWindow(window, GW_CHILD); control; control = ::GetWindow(control, GW_HWNDNEXT)) {
    const RECT rect = DesignRect(control);
    m_places.push_back({control, rect.left / units.x, rect.top / units.y, rect.right / units.x,
                        rect.bottom / units.y, SharesOf(::GetDlgCtrlID(control))});
  }
}

SIZE CLayout::DesignSize(const CDialogUnits& units) const {
  return {Pixels(m_width, units.x, 0, 0), Pixels(m_height, units.y, 0, 0)};
}

void CLayout::Apply(HWND window, const CDialogUnits& units) const {
  const CComboTexts texts(window);
  RECT client{};
  ::GetClientRect(window, &client);
  const double extraX = client.right - m_width * units.x;
  const double extraY = client.bottom - m_height * units.y;
  HDWP moves = ::BeginDeferWindowPos(static_cast<int>(m_places.size()));
  for (const CPlace& place : m_places) {
    if (!::IsWindow(place.control)) continue;
    const CShares& shares = place.shares;
    const int left = Pixels(place.left, units.x, extraX, shares.left);
    const int top = Pixels(place.top, units.y, extraY, shares.top);
    const int width = std::max(0, Pixels(place.right, units.x, extraX, shares.right) - left);
    const int height = std::max(0, Pixels(place.bottom, units.y, extraY, shares.bottom) - top);
    moves = ::DeferWindowPos(moves, place.control, nullptr, left, top, width, height,
                             SWP_NOZORDER | SWP_NOACTIVATE);
    if (!moves) return;
  }
  ::EndDeferWindowPos(moves);
}

CShares CLayout::SharesOf(int controlId) const {
  const auto found = std::find_if(m_anchors.begin(), m_anchors.end(),
                                  [&](const CAnchor& anchor) { return anchor.controlId == controlId; });
  return found == m_anchors.end() ? CShares{} : found->shares;
}

}  // namespace my
