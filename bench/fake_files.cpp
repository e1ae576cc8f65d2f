#include "fake_files.h"

#include <stdexcept>

#include "support/paths.h"

namespace bench {
namespace {

// Entries "000...0", "000...1" and so on, all of one kind.
class CFakeFind : public my::IFindFiles {
 public:
  CFakeFind(size_t count, size_t nameLength, uint32_t attributes)
      : m_left(count), m_attributes(attributes), m_name(nameLength, L'0') {}

  Result Next(my::CFindData& entry) override {
    if (m_left == 0) return Result::END;
    --m_left;
    CountUp();
    entry.name = m_name;
    entry.attributes = m_attributes;
    entry.lastWriteTime = {133'000'000'000'000'000};
    entry.size = 4096;
    return Result::ENTRY;
  }

 private:
  void CountUp() {
    size_t at = m_name.size() - 1;
    for (; m_name[at] == L'9'; --at) m_name[at] = L'0';
    ++m_name[at];
  }

  size_t m_left;
  uint32_t m_attributes;
  std::wstring m_name;
};

}  // namespace

std::unique_ptr<my::IFindFiles> CFakeFiles::Find(const std::wstring& pattern) {
  const bool source = my::ParentPath(pattern) == kSource;
  if (source && m_folders != 0) {
    return std::make_unique<CFakeFind>(m_folders, kFolderLength, my::kAttributeFolder);
  }
  return std::make_unique<CFakeFind>(m_files, kFileLength, 0);
}

my::PathKind CFakeFiles::Kind(const std::wstring&) {
  if (onKind) onKind();
  return my::PathKind::FOLDER;
}

void CFakeFiles::Refuse() {
  throw std::logic_error("not expected of a job that has nothing to do");
}

}  // namespace bench
