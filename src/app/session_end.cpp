#include "app/session_end.h"

#include "document/document.h"
#include "engine/backup_thread.h"
#include "text_ids.h"

namespace qlm {

uint32_t CSessionEnd::BlockReason() const {
  if (m_requested) return 0;
  if (m_run.IsActive()) return IDS_SHUTDOWN_REASON;
  return m_document.IsModified() ? IDS_SHUTDOWN_REASON_EDITS : 0;
}

}  // namespace qlm
