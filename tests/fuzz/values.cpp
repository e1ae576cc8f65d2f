#include <algorithm>
#include <boost/smart_ptr/make_shared.hpp>

#include "document/document_file.h"
#include "fuzz/targets.h"
#include "support/exception.h"
#include "support/pugi_dom.h"
#include "support/strings.h"

namespace fuzz {
namespace {

size_t Digit(char c, size_t bound) {
  return static_cast<unsigned char>(c) % 16 % bound;
}

void AddDst(qlm::CContent& content, std::string_view head, CValues& values) {
  const auto type = static_cast<qlm::DstType>(Digit(head.back(), 4));
  const std::wstring folder = values.Text();
  content.dsts.Append(boost::make_shared<qlm::CDst>(qlm::CDst{folder, type, values.Text()}));
}

void AddTask(qlm::CContent& content, std::string_view head, CValues& values) {
  const auto task = boost::make_shared<qlm::CTask>();
  task->id = values.Text();
  task->path = values.Text();
  task->filterPath = values.Text();
  for (const char c : head.substr(1)) {
    if (!content.dsts.empty()) task->dsts.push_back(content.dsts[Digit(c, content.dsts.size())]);
  }
  content.tasks.Append(task);
}

template <class TList>
bool SameItems(const TList& a, const TList& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const auto& x, const auto& y) { return *x == *y; });
}

}  // namespace

void Require(bool holds, const char* property) {
  if (!holds) throw CBroken(property);
}

std::string_view CValues::Bytes() {
  const size_t end = m_rest.find('~');
  const std::string_view value = m_rest.substr(0, end);
  m_rest.remove_prefix(end == m_rest.npos ? m_rest.size() : end + 1);
  return value;
}

std::wstring CValues::Text() {
  std::wstring text = my::WideFromUtf8(Bytes());
  for (wchar_t& c : text) {
    if (c >= 0xE000 && c <= 0xE7FF) c -= 0x800;
  }
  return text;
}

std::optional<qlm::CContent> ReadContent(std::string_view input) {
  try {
    test::CPugiDom dom;
    if (input.starts_with('<')) return qlm::ContentFromBytes(dom, input);
    qlm::CContent content;
    for (CValues values(input); !values.AtEnd();) {
      const std::string_view head = values.Bytes();
      if (head.starts_with('D')) AddDst(content, head, values);
      if (head.starts_with('T')) AddTask(content, head, values);
    }
    return content;
  } catch (const my::CException&) {
    return {};
  }
}

bool SameDsts(const qlm::CDsts& a, const qlm::CDsts& b) {
  return SameItems(a, b);
}

bool SameContent(const qlm::CContent& a, const qlm::CContent& b) {
  return SameItems(a.dsts, b.dsts) && SameItems(a.tasks, b.tasks);
}

}  // namespace fuzz
