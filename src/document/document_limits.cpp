#include "document/document_limits.h"

#include "document/document.h"
#include "support/exception.h"
#include "text_ids.h"

namespace qlm {

void CheckRoom(const CDsts& dsts) {
  if (dsts.size() >= kMostDsts) throw my::CException(IDS_TOO_MANY_DSTS);
}

}  // namespace qlm
