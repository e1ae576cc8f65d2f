#include "support/mru_strings.h"

#include <algorithm>

namespace my {

CMruStrings::CMruStrings(size_t maximum, std::vector<std::wstring> items) : m_maximum(maximum) {
  Assign(std::move(items));
}

void CMruStrings::Add(std::wstring text) {
  std::erase(m_items, text);
  m_items.insert(m_items.begin(), std::move(text));
  Assign(std::move(m_items));
}

void CMruStrings::Assign(std::vector<std::wstring> items) {
  m_items = std::move(items);
  if (m_items.size() > m_maximum) m_items.resize(m_maximum);
}

}  // namespace my
