#pragma once

#include <algorithm>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <cstddef>
#include <utility>
#include <vector>

namespace qlm {

// Converts an insert position to a row: -1 and any other position outside the list mean the end.
constexpr size_t InsertRow(std::ptrdiff_t position, size_t size) {
  return position >= 0 && position < static_cast<std::ptrdiff_t>(size) ? static_cast<size_t>(position) : size;
}

// An ordered list of shared items. Copies of the list are cheap and share the items, so items in a list must
// not be changed in place but replaced with changed copies.
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

  // Returns the index of this object; -1 if it is not in the list.
  std::ptrdiff_t IndexOf(const Ptr& item) const {
    const auto found = std::find(begin(), end(), item);
    return found == end() ? -1 : found - begin();
  }

  void Remove(size_t index) { m_items.erase(m_items.begin() + static_cast<std::ptrdiff_t>(index)); }

  // Moves the item to index `to`.
  void Move(size_t from, size_t to) {
    const auto at = [this](size_t index) { return m_items.begin() + static_cast<std::ptrdiff_t>(index); };
    if (from < to)
      std::rotate(at(from), at(from + 1), at(to + 1));
    else
      std::rotate(at(to), at(from), at(from + 1));
  }

  // Returns an item equal to the given one; null if there is none.
  Ptr FindEqual(const T& item) const {
    return FindIf([&item](const T& other) { return other == item; });
  }

 protected:
  template <class Test>
  Ptr FindIf(Test test) const {
    const auto found = std::find_if(begin(), end(), [&test](const Ptr& item) { return test(*item); });
    return found == end() ? Ptr() : *found;
  }

  void InsertAt(size_t row, Ptr item) {
    m_items.insert(m_items.begin() + static_cast<std::ptrdiff_t>(row), std::move(item));
  }

  void Set(size_t index, Ptr item) { m_items[index] = std::move(item); }

 private:
  std::vector<Ptr> m_items;
};

}  // namespace qlm
