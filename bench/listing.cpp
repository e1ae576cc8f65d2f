#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>
#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <utility>
#include <vector>

#include "bench.h"
#include "document/filter.h"
#include "engine/source_listing.h"
#include "engine/targets.h"
#include "harness.h"
#include "platform/win32/win32_file_system.h"
#include "platform/win32/win32_message_texts.h"
#include "platform/win32/win32_threads.h"
#include "support/paths.h"
#include "tree.h"

namespace bench {
namespace {

using CFilterPtr = boost::shared_ptr<const qlm::CFilter>;

// Typical filter lines, as sign and expression. The first ten are the short filter.
constexpr const wchar_t* kRules =
    LR"(
-\.tmp$ -/node_modules/$ -^cache/ -\.(obj|pdb|ilk)$ -~$ -(^|/)Thumbs\.db$ +^docs/.*\.txt$ -^build/
-(^|/)\.git/$ -\bbackup[0-9]+\.zip$ -\.bak$ -\.(iso|vhdx?|vmdk)$ -desktop\.ini$ -(^|/)\.vs/$
-(^|/)__pycache__/$ -\.pyc$ -/(Debug|Release|x64)/$ -\.(log|trace)$ -\.log\.[0-9]+$ -^AppData/Local/
-/INetCache/ -~\$.*\.(docx?|xlsx?|pptx?)$ -\.lock$ -/target/$ -/bin/$ -/\.svn/$
-\.(avi|mp4|mkv|mov)$ -\.part$ -\.crdownload$ -^Downloads/.*\.exe$ +^Downloads/keep/ -\.suo$ -\.sdf$
-\.ipch$ -/ipch/$ -\.(gch|pch)$ -core\.[0-9]+$ -\.sw[op]$ -/\.cache/ -old_[0-9]{4}/$
-_copy\([0-9]+\)\. -\.dmp$ -^Music/.*\.wav$ -/thumbnails?/$ -\.(class|jar)$ -^tmp/ -\bunused\b
-\.orig$ -\.rej$ -[0-9]{8}_draft\.)";

std::vector<std::wstring> FilterLines(size_t count) {
  std::wistringstream rules(kRules);
  std::vector<std::wstring> lines;
  for (std::wstring rule; lines.size() < count && rules >> rule;) {
    lines.push_back(rule.substr(0, 1) + L" " + rule.substr(1));
  }
  return lines;
}

CFilterPtr MakeFilter(size_t lines) {
  auto filter = boost::make_shared<qlm::CFilter>();
  filter->Parse(FilterLines(lines), my::CWin32MessageTexts());
  if (filter->HasErrors() || filter->Items().size() != lines) throw std::runtime_error("the filter is wrong");
  return filter;
}

// Searches every expression in every path: the cost of a filter without CRegexPrefilter.
size_t SearchPlainly(const qlm::CFilter& filter, const qlm::CTargets& targets) {
  my::CRegexMatch scratch;
  std::wstring path;
  return static_cast<size_t>(std::count_if(targets.begin(), targets.end(), [&](const qlm::CTarget& target) {
    path.clear();
    target.AppendRelativePath(path);
    return std::any_of(filter.Items().begin(), filter.Items().end(), [&](const qlm::CFilterItemPtr& item) {
      return item->expression->Search(path, scratch);
    });
  }));
}

// Times the listing by a number of threads, without the release of the list.
double TimeListing(const std::wstring& tree, const CFilterPtr& filter, uint64_t expected, size_t threadCount,
                   bool plainly = false) {
  my::CWin32FileSystem files;
  my::CWin32Threads threads;
  const CFilterPtr none = boost::make_shared<qlm::CFilter>();
  const CFilterPtr& used = plainly ? none : filter;
  qlm::CTargets targets(used);
  const double time = TimeMs([&] {
    qlm::ListSource(files, *used, nullptr, tree, targets, {&threads, threadCount});
    if (plainly) SearchPlainly(*filter, targets);
  });
  if (targets.size() < expected) throw std::runtime_error("the listing is not complete");
  return time;
}

// Returns the time of bare loops over the projects of a tree, each thread with its share: what the system
// allows.
double TimeBareThreads(const std::wstring& tree, int projects, int threads) {
  return TimeMs([&] {
    std::vector<std::jthread> running;
    for (int first = 0; first < threads; ++first) {
      running.emplace_back([&tree, projects, threads, first] {
        for (int i = first; i < projects; i += threads) {
          std::wstring folder = my::JoinPath(tree, ProjectName(i)) + my::kSeparator;
          BareList(folder);
        }
      });
    }
  });
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
  const auto listing = [&](const CFilterPtr& filter, size_t threads, double target) {
    return CSide{"by " + std::to_string(threads) + (threads == 1 ? " thread" : " threads"), target,
                 [&tree, filter, threads, count] { return TimeListing(tree, filter, count, threads); }};
  };
  Compare(bare,
          {{"bare loops in two threads", 0, [&] { return TimeBareThreads(tree, shape.projects, 2); }},
           listing(none, 1, 0),
           listing(none, 2, 0.70),
           listing(none, 4, 0)},
          options.rounds);
  for (const auto& [lines, target] : {std::pair(size_t{10}, 0.75), std::pair(size_t{50}, 0.85)}) {
    std::printf("with a filter of %zu lines\n", lines);
    const CFilterPtr filter = MakeFilter(lines);
    Compare(bare,
            {listing(filter, 1, 0),
             listing(filter, 2, target),
             {"all lines searched, 1 thread", 0, [&] { return TimeListing(tree, filter, count, 1, true); }}},
            options.rounds);
  }
}

}  // namespace bench
