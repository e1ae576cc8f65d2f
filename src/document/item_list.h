#pragma once

#include <algorithm>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <vector>

namespace qlm {

// An ordered list of shared items.
template <class T>
class CItemList {
 public:
  using Ptr = boost::shared_ptr<T>;
  using const_iterator = typename std::vector<Ptr>::const_iterator;

  const_iterator begin() const { return m_items.begin(); }
  const_iterator end() const { return m_items.end(); }
  size_t size() const { return m_items.size(); }
  bool empty() const { return m_items.empty(); }
  const Ptr& operator[](size_t index) const { return m_items[index]; }

  // An item equal to the given one, empty when there is none.
  Ptr FindEqual(const T& item) const {
    return FindIf([&item](const T& other) { return other == item; });
  }

 protected:
  template <class Test>
  Ptr FindIf(Test test) const {
    const auto found = std::find_if(begin(), end(), [&test](const Ptr& item) { return test(*item); });
    return found == end() ? Ptr() : *found;
  }

  // Before the item at that position; at the end for -1 and any other position outside the list.
  void InsertAt(std::ptrdiff_t position, Ptr item) {
    const bool inside = position >= 0 && position < static_cast<std::ptrdiff_t>(m_items.size());
    m_items.insert(inside ? m_items.begin() + position : m_items.end(), std::move(item));
  }

 private:
  std::vector<Ptr> m_items;
};

}  // namespace qlm
