#include "engine/task_filter.h"

#include <boost/smart_ptr/make_shared.hpp>

#include "document/filter.h"
#include "engine/engine_ports.h"
#include "text_ids.h"

namespace qlm {

boost::shared_ptr<const CFilter> LoadTaskFilter(const CEnginePorts& ports, const std::wstring& path) {
  const auto filter = boost::make_shared<CFilter>();
  if (!path.empty()) filter->Load(ports.files, ports.ansi, ports.texts, path);
  const CFilterItem* const bad = filter->FirstError();
  if (!bad) return filter;
  my::CException failure(IDS_FILTER_HAS_ERRORS);
  failure.SetWhere(path + L" (" + std::to_wstring(bad->lineIndex + 1) + L"): " + bad->error.message);
  throw failure;
}

}  // namespace qlm
