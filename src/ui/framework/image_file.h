// Reads image files in the formats of the system, including PNG, JPEG, BMP and GIF.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace my {

struct CPicture {
  SIZE size{};                   // pixels; both at least 1
  std::vector<uint32_t> pixels;  // 0xAARRGGBB, rows from the top, premultiplied alpha
};

// A part of a picture and the size to which it is scaled.
struct CPictureCut {
  RECT part{};
  SIZE size{};
};

// Reads the first frame, converted to sRGB and rotated as its metadata demands. `cut` is called with the full
// size and returns the part to keep, which must be within the picture and not empty. The whole picture is
// loaded into memory only if the decoder or a rotation needs it. COM must be initialized on the thread.
// Throws IDS_IMAGE_NOT_READ.
CPicture ReadPicture(const std::wstring& path, const std::function<CPictureCut(SIZE)>& cut);

}  // namespace my
