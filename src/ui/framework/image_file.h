// Pictures from files of the formats that the system decodes, PNG, JPEG, BMP and GIF among them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace my {

struct CPicture {
  SIZE size{};                   // pixels; both at least 1
  std::vector<uint32_t> pixels;  // 0xAARRGGBB in rows from the top, colours multiplied by the opacity
};

// A part of a picture, and the size that it is brought to.
struct CPictureCut {
  RECT part{};
  SIZE size{};
};

// Reads the first frame, its colours brought to sRGB and upright as the camera was held. `cut` gets the whole
// size and answers what is kept; it must not answer anything empty or beyond the picture. The whole picture
// is never in memory if the decoder can do without. COM must be set up on the thread. Throws
// IDS_IMAGE_NOT_READ.
CPicture ReadPicture(const std::wstring& path, const std::function<CPictureCut(SIZE)>& cut);

}  // namespace my
