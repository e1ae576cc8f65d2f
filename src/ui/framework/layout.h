// Where the controls of a resizable window go.
#pragma once

#include <windows.h>

#include <vector>

namespace my {

// How much of the window's extra width and height, in percent, each edge of a control moves.
struct CShares {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// Edges of the window from which the edges of a control keep their distance.
enum : unsigned { kLeft = 1, kTop = 2, kRight = 4, kBottom = 8 };

// A control bound to neither or only the left (upper) edge stays, one bound only to the right (lower) edge
// moves, one bound to both is stretched.
constexpr CShares Edges(unsigned edges) {
  const bool moveX = (edges & (kLeft | kRight)) == kRight;
  const bool moveY = (edges & (kTop | kBottom)) == kBottom;
  return {moveX ? 100 : 0, moveY ? 100 : 0, (edges & kRight) != 0 ? 100 : 0,
          (edges & kBottom) != 0 ? 100 : 0};
}

// An entry of a window's anchor table. Controls side by side share the width with shares of their own:
// {IDC_A, {0, 0, 50, 100}}, {IDC_B, {50, 0, 100, 100}}.
struct CAnchor {
  int controlId;
  CShares shares;

  constexpr CAnchor(int id, unsigned edges) : controlId(id), shares(Edges(edges)) {}
  constexpr CAnchor(int id, CShares controlShares) : controlId(id), shares(controlShares) {}
};

// Horizontal and vertical units of a dialog template in pixels: the average character is 4 wide, 8 high.
struct CDialogUnits {
  double x = 1;
  double y = 1;
};
CDialogUnits UnitsOf(HFONT font);

// The controls of a dialog as its template places them, for any font and size of the window.
class CLayout {
 public:
  // Takes the places of now: the window as created, `units` those it was created with.
  void Capture(HWND window, const CDialogUnits& units, std::vector<CAnchor> anchors);

  // The client area of the template in pixels.
  SIZE DesignSize(const CDialogUnits& units) const;

  // Places all controls for the window's client area of now; no control gets a negative size.
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
