// The commands that open the manual.
#pragma once

#include <cstdint>
#include <string>

#include "app/command.h"

namespace qlm {

// Opens a page of the manual in the browser.
class CCommandManual final : public CCommand {
 public:
  // `page` is the name of a file in the folder of IDS_USAGE_PAGE_URL. It has no fragment, because the system
  // drops the fragment of a local page.
  CCommandManual(CAppContext& context, std::wstring page) : CCommand(context), m_page(std::move(page)) {}
  void Execute(bool run) override;

 private:
  std::wstring m_page;
};

// Returns the page that explains a remedy (IDS_REMEDY_...).
std::wstring ManualPageOfRemedy(uint32_t remedyId);

}  // namespace qlm
