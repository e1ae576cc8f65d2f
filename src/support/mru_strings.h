#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace my {

// Recently used strings, the most recent first, limited to `maximum` entries.
class CMruStrings {
 public:
  explicit CMruStrings(size_t maximum, std::vector<std::wstring> items = {});

  // Inserts the string at the front. Removes an equal one further back and entries above the maximum.
  void Add(std::wstring text);

  // Replaces the list with a stored one, cut to the maximum.
  void Assign(std::vector<std::wstring> items);

  const std::vector<std::wstring>& Items() const { return m_items; }

 private:
  size_t m_maximum;
  std::vector<std::wstring> m_items;
};

}  // namespace my
