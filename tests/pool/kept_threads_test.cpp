#include "platform/kept_threads.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>

#include "support/exception.h"
#include "support/fake_ports.h"
#include "text_ids.h"

namespace {

constexpr my::CThreadStart kIdle{my::IThreads::kIdlePriority};

class CCountedThreads : public test::CStdThreads {
 public:
  std::unique_ptr<my::IRunningThread> Start(std::function<void()> body,
                                            const my::CThreadStart& start) override {
    if (started == most) throw my::CException(IDS_START_THREAD_FAILED);
    ++started;
    return CStdThreads::Start(std::move(body), start);
  }
  int started = 0, most = 3;
};

struct KeptThreads : testing::Test {
  CCountedThreads threads;
  my::CKeptThreads kept{threads};
};

TEST_F(KeptThreads, work_after_work_needs_one_thread_and_sees_what_was_done) {
  int done = 0;
  for (int i = 0; i < 1000; ++i) EXPECT_TRUE(kept.Start([&done] { ++done; }, kIdle)->Wait(my::kNoTimeOut));
  EXPECT_EQ(done, 1000);
  EXPECT_EQ(threads.started, 1);
  kept.Start([] {}, {})->Wait(my::kNoTimeOut);
  EXPECT_EQ(threads.started, 2) << "a thread keeps its priority";
}

TEST_F(KeptThreads, work_never_waits_for_other_work) {
  std::promise<void> end;
  const auto wait = [ended = end.get_future().share()] { ended.wait(); };
  const auto first = kept.Start(wait, kIdle);
  EXPECT_FALSE(first->Wait(1));
  threads.most = 1;
  EXPECT_THROW(kept.Start([] {}, kIdle), my::CException);
  threads.most = 2;
  EXPECT_TRUE(kept.Start([] {}, kIdle)->Wait(my::kNoTimeOut)) << "a failed start leaves nothing";
  end.set_value();
  EXPECT_TRUE(first->Wait(my::kNoTimeOut));
}

TEST(KeptThreadsEnd, waits_for_work_that_nobody_waits_for) {
  std::atomic<int> done = 0;
  {
    CCountedThreads threads;
    my::CKeptThreads kept(threads);
    for (int i = 0; i < 3; ++i) kept.Start([&done] { ++done; }, kIdle);
  }
  EXPECT_EQ(done, 3);
}

}  // namespace
