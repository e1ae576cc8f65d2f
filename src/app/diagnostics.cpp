#include "app/diagnostics.h"

#include <boost/version.hpp>
#include <nlohmann/json_fwd.hpp>

#include "app/command.h"
#include "document/document.h"
#include "engine/backup_thread.h"
#include "platform/message_texts.h"
#include "support/build_info.h"
#include "support/value_codecs.h"
#include "text_ids.h"

namespace qlm {
namespace {

// The numbers of message and system error. The messages name files.
std::wstring ErrorsText(const CResults& rows) {
  std::wstring text;
  for (const CResultPtr& row : rows) {
    if (row->error)
      text += L"\r\n" + std::to_wstring(row->error.code) + L" " + my::HexText(row->error.detail);
  }
  return text.empty() ? L" -" : text;
}

std::wstring Dotted(int major, int minor, int patch) {
  return std::to_wstring(major) + L"." + std::to_wstring(minor) + L"." + std::to_wstring(patch);
}

}  // namespace

std::wstring LibrariesText() {
  return L"Boost " + Dotted(BOOST_VERSION / 100000, BOOST_VERSION / 100 % 1000, BOOST_VERSION % 100) +
         L", JSON for Modern C++ " +
         Dotted(NLOHMANN_JSON_VERSION_MAJOR, NLOHMANN_JSON_VERSION_MINOR, NLOHMANN_JSON_VERSION_PATCH);
}

std::wstring DiagnosticsText(const CAppContext& context, const std::wstring& system,
                             const std::wstring& archiver) {
  const CDocument& document = context.document;
  const my::CMsgArg facts[] = {my::BuildText(),
                               LibrariesText(),
                               system,
                               archiver.empty() ? std::wstring(L"-") : archiver,
                               std::to_wstring(document.Tasks().size()),
                               std::to_wstring(document.Dsts().size()),
                               ErrorsText(context.run.Rows())};
  return my::MakeText(context.ports.engine.texts, IDS_DIAGNOSTICS, facts);
}

}  // namespace qlm
