#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "document/document.h"
#include "settings/settings.h"
#include "text_ids.h"
#include "ui/models/background_model.h"
#include "ui/models/next_step.h"
#include "ui/models/row_colors.h"

namespace {

using namespace qlm;

constexpr my::CColor kWhite{255, 255, 255};
constexpr my::CColor kTexts[] = {kWhite, {0, 0, 0}, {255, 0, 0}, {0, 0, 255}, {118, 118, 118}, {97, 55, 44}};

// Greys, pure colours and mixtures.
std::vector<my::CPixel> AllColors() {
  std::vector<my::CPixel> pixels;
  for (unsigned grey = 0; grey < 256; ++grey) pixels.push_back(0xFF000000U | grey * 0x010101U);
  for (unsigned i = 0; i < 17 * 17 * 17; ++i) {
    const auto part = [](unsigned value) { return static_cast<uint8_t>(std::min(255U, value % 17 * 16)); };
    pixels.push_back(my::PixelOf({part(i), part(i / 17), part(i / 289)}));
  }
  return pixels;
}

TEST(Contrast, only_unreadable_backgrounds_are_changed) {
  for (const my::CColor text : kTexts) {
    const my::CContrastTable limit = my::CContrastTable::Limit(text);
    const my::CContrastTable soft = my::CContrastTable::Soft(text);
    for (const my::CPixel pixel : AllColors()) {
      const my::CPixel moved = limit.Apply(pixel);
      ASSERT_GE(my::Contrast(my::ColorOf(moved), text), my::kReadable)
          << ColorText(text).c_str() << std::hex << pixel;
      ASSERT_GE(my::Contrast(my::ColorOf(soft.Apply(pixel)), text), my::kReadable) << std::hex << pixel;
      const bool right = (my::Luminance(my::ColorOf(pixel)) < my::Luminance(text)) == my::NeedsDark(text);
      if (right && my::Contrast(my::ColorOf(pixel), text) > 4.7) ASSERT_EQ(moved, pixel);
    }
  }
}

TEST(Contrast, pictures_keep_gradations_and_transparency) {
  const my::CContrastTable soft = my::CContrastTable::Soft(kWhite);
  for (unsigned grey = 0; grey + 32 < 256; ++grey) {
    const unsigned low = soft.Apply(0xFF000000U | grey * 0x010101U) & 0xFF;
    const unsigned next = soft.Apply(0xFF000000U | (grey + 1) * 0x010101U) & 0xFF;
    EXPECT_LE(low, next);
    EXPECT_LE(next, low + 2) << "a step that is seen at " << grey;
    EXPECT_LT(low, soft.Apply(0xFF000000U | (grey + 32) * 0x010101U) & 0xFF);
  }
  const my::CPixel half = my::ApplyToLayer(soft, 0x80808080U);
  const unsigned white = soft.Apply(0xFFFFFFFFU) & 0xFF;
  EXPECT_EQ(half, 0x80000000U | (white * 0x80 / 255) * 0x010101U);
  EXPECT_EQ(my::ApplyToLayer(soft, 0U), 0U);
}

TEST(Contrast, row_colors_are_readable_on_the_brightest_and_darkest_background) {
  for (const my::CColor color : CUISetting().stateColors) {
    for (const double luminance : {0.0, 0.05, 0.1, 0.18})
      EXPECT_GE(my::Contrast(my::Luminance(my::Readable(color, luminance, true)), luminance), my::kReadable);
    for (const double luminance : {0.2, 0.5, 1.0})
      EXPECT_GE(my::Contrast(my::Luminance(my::Readable(color, luminance, false)), luminance), my::kReadable);
  }
  EXPECT_EQ(my::Readable({1, 2, 3}, 1.0, false), (my::CColor{1, 2, 3}));
}

// All grounds that a view allows for this text, from the nearest to the farthest.
std::vector<CRowGround> GroundsFor(my::CColor text) {
  std::vector<CRowGround> grounds;
  for (int step = 0; step <= 20; ++step) {
    const double luminance = step / 20.0;
    const bool right = (luminance < my::Luminance(text)) == my::NeedsDark(text);
    if (right && my::Contrast(my::Luminance(text), luminance) >= my::kReadable)
      grounds.push_back({text, {109, 109, 109}, luminance});
  }
  return grounds;
}

TEST(RowColors, text_and_selection_contrast_with_every_ground) {
  const CUISetting setting;
  std::vector<CRowGround> grounds = GroundsFor({255, 255, 255});
  for (const CRowGround& ground : GroundsFor({0, 0, 0})) grounds.push_back(ground);
  for (const CRowGround& ground : grounds) {
    for (int state = 0; state < kStateCount; ++state) {
      const my::CListLook look = StateLook(setting, static_cast<ResultState>(state));
      for (const RowSelection selection :
           {RowSelection::None, RowSelection::Inactive, RowSelection::Active}) {
        const CRowColors colors = RowColors(look, selection, ground);
        const double behind = colors.back ? my::Luminance(*colors.back) : ground.luminance;
        const bool alarm = look.alarm && selection == RowSelection::None;
        EXPECT_GE(my::Contrast(my::Luminance(colors.text), behind), alarm ? 7.0 : my::kReadable)
            << ground.luminance << " state " << state << " selection " << static_cast<int>(selection);
        if (selection == RowSelection::None) continue;
        const double shape = my::Contrast(behind, ground.luminance);
        const double frame =
            colors.frame ? my::Contrast(my::Luminance(*colors.frame), ground.luminance) : 1.0;
        EXPECT_GE(std::max(shape, frame), 3.0) << ground.luminance;
      }
    }
  }
}

TEST(Background, images_are_placed_in_their_corner_and_scaled_to_the_view) {
  const CExtent view{300, 200};
  const CExtent image{100, 100};
  EXPECT_EQ(PlaceImage(view, image, FitType::NONE, ImgOrigin::LT), (my::CRect{0, 0, 100, 100}));
  EXPECT_EQ(PlaceImage(view, image, FitType::NONE, ImgOrigin::LB), (my::CRect{0, 100, 100, 200}));
  EXPECT_EQ(PlaceImage(view, image, FitType::NONE, ImgOrigin::RB), (my::CRect{200, 100, 300, 200}));
  EXPECT_EQ(PlaceImage(view, image, FitType::NONE, ImgOrigin::RT), (my::CRect{200, 0, 300, 100}));
  EXPECT_EQ(PlaceImage(view, image, FitType::WIDTH, ImgOrigin::LB), (my::CRect{0, -100, 300, 200}));
  EXPECT_EQ(PlaceImage(view, image, FitType::HEIGHT, ImgOrigin::RT), (my::CRect{100, 0, 300, 200}));
  EXPECT_EQ(PlaceImage(view, image, FitType::AUTO_FIT, ImgOrigin::LT), (my::CRect{0, 0, 200, 200}));
  EXPECT_EQ(PlaceImage(view, image, FitType::AUTO_FILL, ImgOrigin::LT), (my::CRect{0, 0, 300, 300}));
}

TEST(Background, large_pictures_are_kept_at_screen_size) {
  const CExtent screen{1920, 1080};
  const CExtent huge{12000, 9000};
  EXPECT_EQ(NeededPart(huge, screen, FitType::WIDTH, ImgOrigin::LT).size, (CExtent{1920, 1440}));
  EXPECT_EQ(NeededPart(huge, screen, FitType::AUTO_FIT, ImgOrigin::LT).size, (CExtent{1440, 1080}));
  const CPicturePart corner = NeededPart(huge, screen, FitType::NONE, ImgOrigin::RB);
  EXPECT_EQ(corner.part, (my::CRect{12000 - 1920, 9000 - 1080, 12000, 9000}));
  EXPECT_EQ(corner.size, screen);
  const CExtent thin = NeededPart({1000, 100000}, screen, FitType::WIDTH, ImgOrigin::LT).size;
  EXPECT_LE(thin.width * thin.height, 4.1 * screen.width * screen.height);
  EXPECT_EQ(NeededPart({10, 20}, screen, FitType::AUTO_FILL, ImgOrigin::LT).size, (CExtent{10, 20}));
}

TEST(Background, character_stands_in_the_free_room_nearest_to_its_corner) {
  const CRoom upper{true, {0, 100, 800, 290}, {}};
  const CRoom above{false, {0, 400, 800, 580}, {}};
  const CRoom whole{
      false, {0, 400, 800, 600}, {{500, 580, 790, 600}}};  // with the line of text at the bottom
  const auto place = [&](std::vector<CRoom> rooms, ImgOrigin origin) {
    return PlaceCharacter(rooms, 240, 80, origin);
  };
  EXPECT_EQ(place({upper, above, whole}, ImgOrigin::LB), (my::CRect{0, 400, 200, 600}));
  EXPECT_EQ(place({upper, above, whole}, ImgOrigin::RB), (my::CRect{620, 400, 800, 580})) << "above the text";
  EXPECT_EQ(place({upper, above, whole}, ImgOrigin::RT), (my::CRect{610, 100, 800, 290}));
  const CRoom hint{false, {0, 400, 800, 600}, {{150, 450, 650, 470}}};
  EXPECT_EQ(place({upper, hint}, ImgOrigin::LB), (my::CRect{0, 450, 150, 600})) << "beside the hint";
  const CRoom low{false, {0, 540, 800, 600}, {}};
  EXPECT_EQ(place({upper, low}, ImgOrigin::LB), (my::CRect{0, 100, 190, 290})) << "no room near the corner";
  EXPECT_EQ(place({low}, ImgOrigin::LB), my::CRect()) << "no room";
  EXPECT_EQ(place({{false, {0, 100, 800, 600}, {}}}, ImgOrigin::LB), (my::CRect{0, 360, 240, 600}));
}

TEST(Background, brushes_shade_their_color) {
  const auto drawn = [](BrushType type) {
    std::vector<my::CPixel> pixels(6 * 5);
    FillBrush(pixels, 6, type, {100, 100, 100}, 12);  // patterns of 2, 3, 1 and 1 pixels
    std::string rows;
    for (size_t i = 0; i < pixels.size(); ++i) {
      if (i != 0 && i % 6 == 0) rows += ' ';
      rows += (pixels[i] & 0xFF) == 113 ? '+' : (pixels[i] & 0xFF) == 87 ? '-' : '?';
    }
    return rows;
  };
  EXPECT_EQ(drawn(BrushType::CHECK), "++--++ ++--++ --++-- --++-- ++--++");
  EXPECT_EQ(drawn(BrushType::DIA), "++++++ -+--+- -+--+- ++++++ -+--+-");
  EXPECT_EQ(drawn(BrushType::STRIPE), "+-+-+- +-+-+- +-+-+- +-+-+- +-+-+-");
  EXPECT_EQ(drawn(BrushType::INTERLACE), "++++++ ------ ++++++ ------ ++++++");
  std::vector<my::CPixel> gradient(3);
  FillBrush(gradient, 1, BrushType::DEFAULT, {100, 0, 255}, 96);
  EXPECT_EQ(gradient, (std::vector<my::CPixel>{0xFF7D03FF, 0xFF6D02EC, 0xFF5C01D8}));
}

TEST(Background, translucent_tiles_cover_the_whole_view) {
  std::vector<my::CPixel> pixels(5 * 3);
  FillBrush(pixels, 5, BrushType::CUSTOM_BK, {9, 9, 9}, 96);
  const my::CPixel tile[] = {0xFF0000FFU, 0x00000000U, 0x80000080U, 0xFF00FF00U};
  FillTiles(pixels, 5, tile, 2);
  const my::CPixel expected[] = {0xFF0000FFU, 0xFF090909U, 0xFF0000FFU, 0xFF090909U, 0xFF0000FFU};
  EXPECT_TRUE(std::equal(pixels.begin(), pixels.begin() + 5, expected));
  EXPECT_TRUE(std::equal(pixels.begin() + 10, pixels.end(), expected));
  EXPECT_EQ(pixels[5], 0xFF040484U);
  EXPECT_EQ(pixels[6], 0xFF00FF00U);
}

TEST(Background, difference_covers_all_changed_pixels) {
  const std::vector<my::CPixel> pixels(6 * 5, 0xFF123456U);
  std::vector<my::CPixel> others = pixels;
  EXPECT_EQ(Difference(pixels, others, 6), my::CRect());
  others[1 * 6 + 3] = others[3 * 6 + 1] = others[3 * 6 + 4] = 0;
  EXPECT_EQ(Difference(pixels, others, 6), (my::CRect{1, 1, 5, 4}));
}

TEST(NextStep, leads_from_an_empty_document_to_the_run) {
  CDocument document;
  EXPECT_EQ(NextStep(document, {}, false), uint32_t{IDS_NEXT_ADD_TASK});
  InsertTask(document, -1, {L"a", L"C:\\a", L"", {}});
  EXPECT_EQ(NextStep(document, {0}, false), uint32_t{IDS_NEXT_ADD_DST});
  InsertDst(document, -1, {L"D:\\"});
  EXPECT_EQ(NextStep(document, {}, false), uint32_t{IDS_NEXT_SELECT_TASK});
  EXPECT_EQ(NextStep(document, {0}, false), uint32_t{IDS_NEXT_CHECK_DST});
  SetUse(document, {0}, 0, true);
  EXPECT_EQ(NextStep(document, {0}, false), uint32_t{IDS_NEXT_RUN});
  EXPECT_EQ(NextStep(document, {0}, true), uint32_t{IDS_NEXT_RUNNING});
}

}  // namespace
