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

// Starts two threads; a third one cannot be started.
class CFewThreads : public test::CStdThreads {
 public:
  std::unique_ptr<my::IRunningThread> Start(std::function<void()> body,
                                            const my::CThreadStart& start) override {
    if (left-- <= 0) throw my::CException(IDS_START_THREAD_FAILED, {my::CSystemError()});
    return CStdThreads::Start(std::move(body), start);
  }
  int left = 2;
};

// Items 0, 1, 2 … of which a later one is known only after the end of an earlier one. All members but `run`
// are used under the lock of the work only.
class CNumbers : public my::IOrderedWork<int> {
 public:
  std::optional<int> Next() override {
    EXPECT_FALSE(failed) << "nothing is begun after a failure";
    FailAt(unknown, begun, "next ");
    if (begun == known) return {};
    most = std::max(most, ++inProgress);
    return begun++;
  }
  void Run(int& item) override { run(item); }
  void End(int& item) override {
    --inProgress;
    ++ended;
    FailAt(spoiled, item, "end ");
    known = std::min(1000, known + 2 * item);
  }

  int unknown = -1;  // fails in Next
  int spoiled = -1;  // fails in End
  int begun = 0, known = 10, inProgress = 0, most = 0, ended = 0;
  bool failed = false;
  std::function<void(int)> run = [](int) {};

 private:
  void FailAt(int bad, int item, const std::string& step) {
    failed = failed || item == bad;
    if (item == bad) throw std::runtime_error(step + std::to_string(item));
  }
};

class OrderedWork : public testing::TestWithParam<int> {
 protected:
  std::string Thrown(CNumbers& numbers) {
    CFewThreads threads;
    try {
      RunOrdered(numbers, {&threads, static_cast<size_t>(GetParam())});
    } catch (const std::runtime_error& failure) {
      return failure.what();
    }
    return "nothing";
  }
};

INSTANTIATE_TEST_SUITE_P(Threads, OrderedWork, testing::Values(1, 2, 4));

TEST_P(OrderedWork, ends_every_item_also_with_fewer_threads_than_wanted) {
  const int count = std::min(GetParam(), 3);  // the fourth thread cannot be started
  std::promise<void> together;
  std::atomic<int> met = 0;
  CNumbers numbers;
  numbers.run = [&, meeting = together.get_future().share()](int) {
    if (++met == count) together.set_value();
    meeting.wait();
  };
  EXPECT_EQ(Thrown(numbers), "nothing");
  EXPECT_TRUE(numbers.most == count && numbers.ended == 1000);
}

TEST_P(OrderedWork, throws_the_first_failure_in_the_order_of_the_items) {
  const bool alone = GetParam() == 1;
  std::promise<void> later;
  CNumbers numbers;
  numbers.run = [&, failed = later.get_future().share()](int item) {
    if (item == 7) later.set_value();
    if (item == 6 && !alone) failed.wait();
    if (item == 6 || item == 7) throw std::runtime_error("item " + std::to_string(item));
  };
  EXPECT_EQ(Thrown(numbers), "item 6");
  EXPECT_EQ(numbers.ended, numbers.begun - (alone ? 1 : 2)) << "the others have ended";
  CNumbers spoiled;
  spoiled.spoiled = 100;
  EXPECT_EQ(Thrown(spoiled), "end 100");
  CNumbers unknown;
  unknown.unknown = 5;
  EXPECT_EQ(Thrown(unknown), "next 5");
  EXPECT_EQ(unknown.ended, 5) << "what was begun has ended";
  CNumbers both;
  both.unknown = 5;
  both.spoiled = 4;
  EXPECT_EQ(Thrown(both), "end 4");
}

}  // namespace
