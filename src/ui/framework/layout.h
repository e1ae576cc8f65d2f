// The layout of controls in a resizable window.
#pragma once

#include <windows.h>

#include <vector>

namespace my {

// Percent of the window's extra width or height by which each edge of a control moves.
struct CShares {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// Edges of the window to which a control is anchored.
enum : unsigned { kLeft = 1, kTop = 2, kRight = 4, kBottom = 8 };

// A control anchored only to the right (bottom) moves, one anchored to both sides stretches, any other stays.
constexpr CShares Edges(unsigned edges) {
  const bool moveX = (edges & (kLeft | kRight)) == kRight;
  const bool moveY = (edges & (kTop | kBottom)) == kBottom;
  return {moveX ? 100 : 0, moveY ? 100 : 0, (edges & kRight) != 0 ? 100 : 0,
          (edges & kBottom) != 0 ? 100 : 0};
}

// An entry of a window's anchor table. Adjacent controls can divide the extra width with explicit shares:
// {IDC_A, {0, 0, 50, 100}}, {IDC_B, {50, 0, 100, 100}}.
struct CAnchor {
  int controlId;
  CShares shares;

  constexpr CAnchor(int id, unsigned edges) : controlId(id), shares(Edges(edges)) {}
  constexpr CAnchor(int id, CShares controlShares) : controlId(id), shares(controlShares) {}
};

// Size of a dialog unit in pixels: an average character is 4 units wide and 8 high.
struct CDialogUnits {
  double x = 1;
  double y = 1;
};
CDialogUnits UnitsOf(HFONT font);

// Scales the controls of a dialog template to any font and window size.
class CLayout {
 public:
  // Records the current positions of the controls; `units` are the dialog units of the window at creation.
  void Capture(HWND window, const CDialogUnits& units, std::vector<CAnchor> anchors);

  // Returns the client size of the template in pixels.
  SIZE DesignSize(const CDialogUnits& units) const;

  // Places all controls for the current client area. No control gets a negative size.
  void Apply(HWND window, const CDialogUnits& units) const;

 private:
  struct CPlace {
    HWND control;
    double left, top, right, bottom;  // dialog units
    CShares shares;
  };

  CShares SharesOf(int controlId) const;

  std::vector<CAnchor> m_anchors;
  std::vector<CPlace> m_places;
  double m_width = 0;  // dialog units
  double m_height = 0;
};

}  // namespace my
