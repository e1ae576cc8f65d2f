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
    // A copy: the handler may be replaced while it runs, by a message box's loop for one.
    const CFailureHandler handler = Handler();
    if (handler) handler(std::move(failure));
  } catch (...) {
    return;
  }
}

}  // namespace my
