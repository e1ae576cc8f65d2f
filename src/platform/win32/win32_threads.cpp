#include "platform/win32/win32_threads.h"

#include <windows.h>

#include <process.h>

#include "platform/win32/handle.h"

namespace my {
namespace {

class CRunningThread : public IRunningThread {
 public:
  explicit CRunningThread(CKernelHandle thread) : m_thread(std::move(thread)) {}

  bool Wait(uint32_t timeOutMs) override {
    return ::WaitForSingleObject(m_thread.Get(), timeOutMs) == WAIT_OBJECT_0;
  }

 private:
  CKernelHandle m_thread;
};

unsigned __stdcall Enter(void* parameter) {
  const std::unique_ptr<std::function<void()>> body(static_cast<std::function<void()>*>(parameter));
  (*body)();
  return 0;
}

}  // namespace

std::unique_ptr<IRunningThread> CWin32Threads::Start(std::function<void()> body, int priority,
                                                     CSystemError& error) {
  auto parameter = std::make_unique<std::function<void()>>(std::move(body));
  // Suspended until its priority is set. The C run-time's function sets the system's error, too.
  CKernelHandle thread(reinterpret_cast<HANDLE>(
      ::_beginthreadex(nullptr, 0, Enter, parameter.get(), CREATE_SUSPENDED, nullptr)));
  if (!thread) {
    error = CSystemError::FromWin32(::GetLastError());
    return nullptr;
  }
  ::SetThreadPriority(thread.Get(), priority);
  ::SetThreadPriorityBoost(thread.Get(), TRUE);
  parameter.release();  // the thread's own from here on
  ::ResumeThread(thread.Get());
  return std::make_unique<CRunningThread>(std::move(thread));
}

}  // namespace my
