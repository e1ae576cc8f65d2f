#include "platform/win32/win32_threads.h"

#include <windows.h>

#include <process.h>

#include "platform/win32/handle.h"
#include "platform/win32/last_error.h"
#include "text_ids.h"

namespace my {
namespace {

static_assert(IThreads::kIdlePriority == THREAD_PRIORITY_IDLE);
static_assert(IThreads::kNormalPriority == THREAD_PRIORITY_NORMAL && kNoTimeOut == INFINITE);

class CRunningThread : public IRunningThread {
 public:
  CRunningThread(CKernelHandle thread, uint32_t id) : m_thread(std::move(thread)), m_id(id) {}

  bool Wait(uint32_t timeOutMs) override {
    return ::WaitForSingleObject(m_thread.Get(), timeOutMs) == WAIT_OBJECT_0;
  }

  uint32_t Id() const override { return m_id; }

 private:
  CKernelHandle m_thread;
  uint32_t m_id;
};

unsigned __stdcall Enter(void* parameter) {
  const std::unique_ptr<std::function<void()>> body(static_cast<std::function<void()>*>(parameter));
  (*body)();
  return 0;
}

}  // namespace

std::unique_ptr<IRunningThread> CWin32Threads::Start(std::function<void()> body, const CThreadStart& start) {
  auto parameter = std::make_unique<std::function<void()>>(std::move(body));
  unsigned id = 0;
  // Created suspended until its priority is set. _beginthreadex also sets the last error.
  CKernelHandle thread(reinterpret_cast<HANDLE>(
      ::_beginthreadex(nullptr, start.stackBytes, Enter, parameter.get(), CREATE_SUSPENDED, &id)));
  if (!thread) throw CException(IDS_START_THREAD_FAILED, {LastError()});
  ::SetThreadPriority(thread.Get(), start.priority);
  ::SetThreadPriorityBoost(thread.Get(), !start.boost);
  parameter.release();  // owned by the thread from here
  ::ResumeThread(thread.Get());
  return std::make_unique<CRunningThread>(std::move(thread), id);
}

}  // namespace my
