#include "ui/main_window/document_clipboard.h"

#include "document/document_clip.h"

namespace qlm {

void CDocumentClipboard::Set(const CClip& clip) {
  m_clipboard.Set(m_owner, clip.text, clip.document);
}

}  // namespace qlm
