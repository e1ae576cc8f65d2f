#include "engine/ordered_work.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <future>
#include <stdexcept>
#include <string>

#include "support/exception.h"
#include "support/fake_ports.h"
#include "text_ids.h"

namespace {

// Starts threads until none can be started any more.
class CFewThreads : public test::CStdThreads {
 public:
  std::unique_ptr<my::IRunningThread> Start(std::function<void()> body,
                                            const my::CThreadStart& start) override {
    if (left-- <= 0) throw my::CException(IDS_START_THREAD_FAILED, {my::CSystemError()});
    return CStdThreads::Start(std::move(body), start);
  }
  int left = 0;
};

// Items 0, 1, 2 … All members but `run` are used under the lock of the work only.
class CNumbers : public my::IOrderedWork<int> {
 public:
  std::optional<int> Next() override {
    EXPECT_FALSE(failed) << "nothing is begun after a failure";
    failed = begun == refused;
    if (failed) throw std::runtime_error("next " + std::to_string(begun));
    if (begun == known) return {};
    most = std::max(most, ++inProgress);
    return begun++;
  }
  void Run(int& item) override {
    if (run) run(item);
  }
  void End(int& item) override {
    --inProgress;
    failed = failed || item == spoiled;
    if (item == spoiled) throw std::runtime_error("end " + std::to_string(item));
    ended.push_back(item);
    known = std::min(size, known + 2 * item);  // a later item is known only after the end of an earlier one
  }

  int size = 1000;
  int known = 10;
  int refused = -1;  // by Next
  int spoiled = -1;  // by End
  bool failed = false;
  int begun = 0;
  int inProgress = 0;
  int most = 0;
  std::vector<int> ended;
  std::function<void(int)> run;
};

class OrderedWork : public testing::TestWithParam<int> {
 protected:
  std::string Thrown() {
    threads.left = 2;
    try {
      RunOrdered(numbers, {&threads, static_cast<size_t>(GetParam())});
      return "nothing";
    } catch (const std::runtime_error& failure) {
      return failure.what();
    }
  }

  CFewThreads threads;
  CNumbers numbers;
};

INSTANTIATE_TEST_SUITE_P(Threads, OrderedWork, testing::Values(1, 2, 4));

TEST_P(OrderedWork, ends_every_item_also_with_fewer_threads_than_wanted) {
  const int count = std::min(GetParam(), 3);  // the fourth thread cannot be started
  std::promise<void> together;
  std::atomic<int> met = 0;
  numbers.run = [&, meeting = together.get_future().share()](int) {
    if (++met == count) together.set_value();
    meeting.wait();
  };
  EXPECT_EQ(Thrown(), "nothing");
  EXPECT_EQ(numbers.most, count);
  std::sort(numbers.ended.begin(), numbers.ended.end());
  ASSERT_EQ(numbers.ended.size(), 1000u);
  EXPECT_EQ(numbers.ended.back(), 999);
}

TEST_P(OrderedWork, throws_the_first_failure_in_the_order_of_the_items) {
  const bool alone = GetParam() == 1;
  std::promise<void> later;
  numbers.run = [&, failed = later.get_future().share()](int item) {
    if (item == 7) later.set_value();
    if (item == 6 && !alone) failed.wait();
    if (item == 6 || item == 7) throw std::runtime_error("item " + std::to_string(item));
  };
  EXPECT_EQ(Thrown(), "item 6");
  EXPECT_EQ(static_cast<int>(numbers.ended.size()), numbers.begun - (alone ? 1 : 2)) << "all have ended";
  numbers = {};
  numbers.spoiled = 100;
  EXPECT_EQ(Thrown(), "end 100");
}

TEST_P(OrderedWork, failure_of_the_next_item_comes_after_those_of_items_in_progress) {
  numbers.refused = 5;
  EXPECT_EQ(Thrown(), "next 5");
  EXPECT_EQ(numbers.ended.size(), 5u) << "what was begun has ended";
  numbers = {};
  numbers.refused = 5;
  numbers.run = [](int item) {
    if (item == 4) throw std::runtime_error("item 4");
  };
  EXPECT_EQ(Thrown(), "item 4");
}

}  // namespace
