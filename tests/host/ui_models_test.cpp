#include <gtest/gtest.h>

#include "support/placement.h"
#include "ui/framework/list_model.h"

namespace {

using namespace my;

TEST(Placement, window_is_moved_onto_the_nearest_screen) {
  const my::CRect left{0, 0, 1000, 800};
  const my::CRect right{1000, -200, 2000, 600};
  const std::vector<my::CRect> screens = {left, right};
  const my::CRect inside{10, 20, 300, 400};
  EXPECT_EQ(PullBack(inside, screens), inside);
  EXPECT_EQ(PullBack({900, 700, 1100, 900}, {left}), (my::CRect{800, 600, 1000, 800}));
  EXPECT_EQ(PullBack({950, 100, 1250, 300}, screens), (my::CRect{1000, 100, 1300, 300}));
  EXPECT_EQ(PullBack({2500, -900, 2700, -800}, screens), (my::CRect{1800, -200, 2000, -100}));
  EXPECT_EQ(PullBack({-500, -500, 5000, 100}, {left}), (my::CRect{0, 0, 1000, 600}));
  // as in an edited settings file
  EXPECT_EQ(PullBack({INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN}, {left}),
            (my::CRect{1000, 800, 1000, 800}));
  EXPECT_EQ(PullBack({INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX}, screens), left);
  EXPECT_EQ(PullBack(inside, {}), inside);
  // A window snapped to the left half of the screen, and one that only resembles it.
  const CBorder border{7, 0, 7, 7};
  EXPECT_EQ(PullBack({-7, 0, 507, 807}, {left}, border), (my::CRect{-7, 0, 507, 807}));
  EXPECT_EQ(PullBack({-8, -1, 506, 500}, {left}, border), (my::CRect{0, 0, 514, 501}));
  EXPECT_EQ(CentreOn({0, 0, 200, 100}, {100, 100, 500, 300}), (my::CRect{200, 150, 400, 250}));
}

TEST(ListModel, search_by_typing_wraps_around) {
  struct CNames : IListModel {
    std::vector<std::wstring> names{L"Beta", L"alpha", L"Alto", L"al"};
    size_t RowCount() const override { return names.size(); }
    size_t ColumnCount() const override { return 1; }
    CListColumn Column(size_t) const override { return {}; }
    std::wstring Text(size_t row, size_t) const override { return names[row]; }
  } model;
  EXPECT_EQ(FindRow(model, L"AL", 0), 1u);
  EXPECT_EQ(FindRow(model, L"al", 3), 3u);
  EXPECT_EQ(FindRow(model, L"alp", 2), 1u);
  EXPECT_EQ(FindRow(model, L"b", 9), 0u);
  EXPECT_FALSE(FindRow(model, L"betas", 0));
  model.names.clear();
  EXPECT_FALSE(FindRow(model, L"", 0));
}

}  // namespace
