#include "support/box_layout.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

using namespace my;

// Control i is 10 * i wide and can shrink by half if it is wide. It is 10 high; a wide one shows 100 pixels
// of text in lines of 10.
struct CMeasure : IBoxMeasure {
  std::set<int> hidden;

  bool IsShown(const CBox& control) const override { return !hidden.contains(control.id); }
  CSizeRange Width(const CBox& control) const override {
    const int width = control.label ? control.id : 10 * control.id;
    return {control.wide ? width / 2 : width, width};
  }
  CSizeRange Height(const CBox& control, int width) const override {
    const int height = control.wide ? 10 * ((100 + width - 1) / width) : 10;
    return {control.tall ? height / 2 : height, height};
  }
  int Gap() const override { return 2; }
  CBorder Frame(const CBox&) const override { return {3, 12, 3, 3}; }
};

struct BoxLayout : testing::Test {
  std::map<int, CRect> Places(const CBox& root, const CRect& area) const {
    std::map<int, CRect> places;
    for (const CPlacedBox& place : CBoxLayout(root, measure).Place(area))
      places[place.control->label ? -place.control->id : place.control->id] = place.rect;
    return places;
  }

  CMeasure measure;
};

TEST_F(BoxLayout, labels_share_a_column_and_fields_the_rest) {
  const CBox root = Column({Field(Control(20).Wide(), {Control(3)}), Field(Control(8))});
  auto places = Places(root, {0, 0, 300, 22});
  EXPECT_EQ(places[-20], (CRect{0, 0, 20, 10}));
  EXPECT_EQ(places[-8].right, 20) << "as wide as the longest label";
  EXPECT_EQ(places[20], (CRect{22, 0, 268, 10}));
  EXPECT_EQ(places[3], (CRect{270, 0, 300, 10}));
  EXPECT_EQ(places[8], (CRect{22, 12, 102, 22}));
}

TEST_F(BoxLayout, missing_room_is_taken_from_what_can_shrink_and_the_rest_exceeds_the_area) {
  const CBox root = Row({Control(10), Control(20).Wide()});
  EXPECT_EQ(CBoxLayout(root, measure).Width(), (CSizeRange{202, 302}));
  EXPECT_EQ(Places(root, {0, 0, 250, 10})[20].right, 250);
  EXPECT_EQ(Places(root, {0, 0, 150, 10})[20].right, 202);
  const CBox list = Column({Control(10).Tall(), Buttons({1, 2})});
  auto low = Places(list, {0, 0, 100, 17});
  EXPECT_EQ(low[10].bottom, 5) << "the list shrinks";
  EXPECT_EQ(low[1], (CRect{58, 7, 78, 17})) << "as wide as the other button";
}

TEST_F(BoxLayout, row_of_buttons_wraps_and_text_gets_the_lines_that_it_needs) {
  const CBox root = Column({Flow({Control(10), Control(9), Buttons({5})}), Control(50).Wide()});
  const CBoxLayout layout(root, measure);
  EXPECT_EQ(layout.Height(500), (CSizeRange{22, 22}));
  EXPECT_EQ(layout.Height(200).natural, 10 + 2 + 10 + 2 + 10);
  auto places = Places(root, {0, 0, 200, 34});
  EXPECT_EQ(places[9].top, 0);
  EXPECT_EQ(places[5], (CRect{150, 12, 200, 22})) << "at the right edge of its line";
  EXPECT_EQ(layout.Height(100).natural, 3 * 10 + 2 * 2 + 2 + 10);
}

TEST_F(BoxLayout, hidden_controls_take_no_room) {
  const CBox root = Group(1, {Row({Control(4)}), Control(5), Space(), Control(6)});
  auto places = Places(root, {0, 0, 80, 100});
  EXPECT_EQ(places[1], (CRect{0, 0, 80, 100}));
  EXPECT_EQ(places[6], (CRect{3, 12 + 10 + 2 + 10 + 2 + 2, 63, 48}));
  measure.hidden = {4, 5};
  EXPECT_EQ(Places(root, {0, 0, 80, 100})[6].top, 12 + 2);
}

}  // namespace
