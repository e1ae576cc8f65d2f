#include "app/manual_commands.h"

#include "platform/known_folders.h"
#include "platform/message_texts.h"
#include "platform/shell.h"
#include "support/paths.h"
#include "text_ids.h"

namespace qlm {

void CCommandManual::Execute(bool run) {
  if (!run) return;
  const CAppPorts& ports = m_context.ports;
  const std::wstring first =
      my::JoinPath(ports.folders.ProgramFolder(), ports.engine.texts.Text(IDS_USAGE_PAGE_URL));
  ports.shell.Open(my::JoinPath(my::ParentPath(first), m_page));
}

std::wstring ManualPageOfRemedy(uint32_t remedyId) {
  switch (remedyId) {
    case IDS_REMEDY_FILTER:
    case IDS_REMEDY_FILTER_SIGN:
    case IDS_REMEDY_FILTER_FORM:
    case IDS_REMEDY_REGEX:
    case IDS_REMEDY_REGEX_COMPLEX: return L"filters.html";
    case IDS_REMEDY_NAME:
    case IDS_REMEDY_BAD_NAME: return L"names.html";
    case IDS_REMEDY_ARCHIVER:
    case IDS_REMEDY_ARCHIVER_FAILED:
    case IDS_REMEDY_INCOMPLETE:
    case IDS_REMEDY_TEMPORARY: return L"archives.html";
    case IDS_REMEDY_TOO_LONG:
    case IDS_REMEDY_CLOUD:
    case IDS_REMEDY_IN_USE:
    case IDS_REMEDY_FILE_TOO_LARGE: return L"limits.html";
    default: return L"messages.html";
  }
}

}  // namespace qlm
