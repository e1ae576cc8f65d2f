#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace my {

// Recently used strings, the most recent first, at most `maximum` of them.
class CMruStrings {
 public:
  explicit CMruStrings(size_t maximum, std::vector<std::wstring> items = {});

  // Puts the string in front; an equal one further back goes away, and so does what is too many.
  void Add(std::wstring text);

  // Takes a stored list in its order, without what is too many.
  void Assign(std::vector<std::wstring> items);

  const std::vector<std::wstring>& Items() const { return m_items; }

 private:
  size_t m_maximum;
  std::vector<std::wstring> m_items;
};

}  // namespace my
