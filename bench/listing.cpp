#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstdio>
#include <stdexcept>
#include <utility>

#include "bench.h"
#include "document/filter.h"
#include "engine/source_listing.h"
#include "engine/targets.h"
#include "harness.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_message_texts.h"
#include "support/paths.h"
#include "tree.h"

namespace bench {
namespace {

using CFilterPtr = boost::shared_ptr<const qlm::CFilter>;

// What people put into such files; the first ten are the short filter.
const std::vector<std::wstring> kLines = {
    L"- \\.tmp$",
    L"- /node_modules/$",
    L"- ^cache/",
    L"- \\.(obj|pdb|ilk)$",
    L"- ~$",
    L"- (^|/)Thumbs\\.db$",
    L"+ ^docs/.*\\.txt$",
    L"- ^build/",
    L"- (^|/)\\.git/$",
    L"- \\bbackup[0-9]+\\.zip$",
    L"- \\.bak$",
    L"- \\.(iso|vhdx?|vmdk)$",
    L"- desktop\\.ini$",
    L"- (^|/)\\.vs/$",
    L"- (^|/)__pycache__/$",
    L"- \\.pyc$",
    L"- /(Debug|Release|x64)/$",
    L"- \\.(log|trace)$",
    L"- \\.log\\.[0-9]+$",
    L"- ^AppData/Local/",
    L"- /Temporary Internet Files/",
    L"- ~\\$.*\\.(docx?|xlsx?|pptx?)$",
    L"- \\.lock$",
    L"- /target/$",
    L"- /bin/$",
    L"- /\\.svn/$",
    L"- \\.(avi|mp4|mkv|mov)$",
    L"- \\.part$",
    L"- \\.crdownload$",
    L"- ^Downloads/.*\\.exe$",
    L"+ ^Downloads/keep/",
    L"- \\.suo$",
    L"- \\.sdf$",
    L"- \\.ipch$",
    L"- /ipch/$",
    L"- \\.(gch|pch)$",
    L"- core\\.[0-9]+$",
    L"- \\.sw[op]$",
    L"- /\\.cache/",
    L"- old_[0-9]{4}/$",
    L"- copy \\([0-9]+\\)\\.",
    L"- \\.dmp$",
    L"- ^Music/.*\\.wav$",
    L"- /thumbnails?/$",
    L"- \\.(class|jar)$",
    L"- ^tmp/",
    L"- \\bunused\\b",
    L"- \\.orig$",
    L"- \\.rej$",
    L"- [0-9]{8}_draft\\.",
};

CFilterPtr MakeFilter(size_t lines) {
  auto filter = boost::make_shared<qlm::CFilter>();
  filter->Parse({kLines.begin(), kLines.begin() + static_cast<std::ptrdiff_t>(lines)},
                my::CWin32MessageTexts());
  if (filter->HasErrors()) throw std::runtime_error("a line of the filter is wrong");
  return filter;
}

// What a filter would cost without the look at letters that saves most searches.
size_t SearchPlainly(const qlm::CFilter& filter, const qlm::CTargets& targets) {
  my::CRegexMatch scratch;
  return static_cast<size_t>(std::count_if(targets.begin(), targets.end(), [&](const qlm::CTarget& target) {
    return std::any_of(filter.Items().begin(), filter.Items().end(), [&](const qlm::CFilterItemPtr& item) {
      return item->expression->Search(target.RelativePath(), scratch);
    });
  }));
}

// Times the listing alone, not the release of the list.
double TimeListing(const std::wstring& tree, const CFilterPtr& filter, uint64_t expected,
                   bool plainly = false) {
  my::CWin32FileSystem files;
  const CFilterPtr none = boost::make_shared<qlm::CFilter>();
  const CFilterPtr& used = plainly ? none : filter;
  qlm::CTargets targets(used);
  const double time = TimeMs([&] {
    qlm::ListSource(files, *used, nullptr, tree, targets);
    if (plainly) SearchPlainly(*filter, targets);
  });
  if (targets.size() < expected) throw std::runtime_error("the listing is not complete");
  return time;
}

}  // namespace

void MeasureListing(const COptions& options) {
  const CTreeShape shape{.projects = std::max(1, 100 / options.divisor)};
  const std::wstring tree = EnsureTree(options.root, shape);
  const uint64_t count = FileCount(shape);
  const CSide bare{"bare loop", 0, [&] {
                     std::wstring folder = tree + my::kSeparator;
                     return TimeMs([&] { BareList(folder); });
                   }};
  std::printf("listing %llu files\n", static_cast<unsigned long long>(count));
  const auto none = boost::make_shared<const qlm::CFilter>();
  Compare(bare, {{"no filter", 1.05, [&] { return TimeListing(tree, none, count); }}}, options.rounds);
  for (const auto& [lines, target] : {std::pair(size_t{10}, 1.10), std::pair(kLines.size(), 1.20)}) {
    const CFilterPtr filter = MakeFilter(lines);
    const std::string name = "filter of " + std::to_string(lines) + " lines";
    Compare(bare,
            {{name, target, [&] { return TimeListing(tree, filter, count); }},
             {name + ", all searched", 0, [&] { return TimeListing(tree, filter, count, true); }}},
            options.rounds);
  }
}

}  // namespace bench
