#include "ui/framework/failures.h"

namespace my {
namespace {

CFailureHandler& Handler() {
  static CFailureHandler handler;
  return handler;
}

}  // namespace

CFailureHandler SetFailureHandler(CFailureHandler handler) {
  return std::exchange(Handler(), std::move(handler));
}

void ReportFailure(std::exception_ptr failure) noexcept {
  try {
    // A copy, because the handler may be replaced while it runs, for example from the message loop of a
    // message box.
    const CFailureHandler handler = Handler();
    if (handler) handler(std::move(failure));
  } catch (...) {
    return;
  }
}

}  // namespace my
