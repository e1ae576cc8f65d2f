// The drawings of the characters as tables, which scripts/art.py makes. Points are in tenths of a unit, a
// character is 400 units wide and high.
#pragma once

#include <cstdint>

namespace qlm::art {

constexpr float kStepsInUnit = 10;
constexpr float kUnits = 400;

// x' = a x + c y + e, y' = b x + d y + f
struct CAffine {
  float a, b, c, d, e, f;
};

// An outline: the verbs M and L take one point, C takes three, Z none. A colour is ARGB, 0 for none.
struct CShape {
  uint16_t firstVerb;
  uint16_t verbCount;
  uint16_t firstNumber;  // in kPoints, x and y each count
  uint32_t fill;
  uint32_t stroke;
  uint16_t width;  // in tenths of a unit
};

struct CItem {
  int16_t index;    // a shape; below zero the group -1 - index
  uint16_t matrix;  // of a group
  uint8_t opacity;
};

struct CGroup {
  uint16_t firstItem;
  uint16_t itemCount;
};

extern const char kVerbs[];
extern const int16_t kPoints[];
extern const CShape kShapes[];
extern const CAffine kMatrices[];
extern const CItem kItems[];
extern const CGroup kGroups[];
extern const uint16_t kCharacters[24];  // the group of each, in the order of BkImgType from OK on

}  // namespace qlm::art
