#pragma once

#include "platform/threads.h"

namespace my {

class CWin32Threads : public IThreads {
 public:
  std::unique_ptr<IRunningThread> Start(std::function<void()> body, const CThreadStart& start) override;
};

}  // namespace my
