#include "engine/task_base.h"

#include "support/exception.h"
#include "text_ids.h"

namespace my {

void CheckStop(const IStopQuery* stop) {
  if (stop && stop->IsStopRequested()) throw CException(IDS_STOPPED);
}

}  // namespace my
