#include "platform/win32/standalone_notice.h"

#include "gui/gui.h"

namespace {

TEST(StandaloneNotice, waits_for_the_user_and_not_for_ever) {
  constexpr uint32_t kLong = 600'000;
  test::Press({VK_SHIFT});
  const uint64_t start = ::GetTickCount64();
  my::ShowStandaloneNotice({}, {kLong, 100});
  my::ShowStandaloneNotice({}, {100, 100});
  EXPECT_LT(::GetTickCount64() - start, kLong);
}

}  // namespace
