#pragma once

#include <boost/smart_ptr/shared_ptr.hpp>
#include <string>

namespace qlm {

class CFilter;
struct CEnginePorts;

// Loads the filter of a task; without a path it is empty. Throws what CFilter::Load throws, and
// IDS_FILTER_HAS_ERRORS, which names the first invalid line.
boost::shared_ptr<const CFilter> LoadTaskFilter(const CEnginePorts& ports, const std::wstring& path);

}  // namespace qlm
