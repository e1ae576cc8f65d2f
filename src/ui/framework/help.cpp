#include "ui/framework/help.h"

#include <utility>

namespace my {
namespace {

CHelpHandler& Handler() {
  static CHelpHandler handler;
  return handler;
}

}  // namespace

CHelpHandler SetHelpHandler(CHelpHandler handler) {
  return std::exchange(Handler(), std::move(handler));
}

bool ShowHelp(UINT templateId) {
  return Handler() && Handler()(templateId);
}

}  // namespace my
