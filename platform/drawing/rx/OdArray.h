#pragma once
#include "OdError.h"
#include <algorithm>
#include <initializer_list>
#include <vector>

/// A growing array; a value type. Every access by index is checked and throws OdError_InvalidIndex.
template <class T>
class OdArray {
public:
  using size_type = unsigned int;
  using value_type = T;
  using iterator = typename std::vector<T>::iterator;
  using const_iterator = typename std::vector<T>::const_iterator;

  OdArray() = default;
  OdArray(std::initializer_list<T> items) : m_items(items) {}

  size_type size() const { return static_cast<size_type>(m_items.size()); }
  size_type length() const { return size(); }
  bool isEmpty() const { return m_items.empty(); }
  bool empty() const { return m_items.empty(); }

  T& at(size_type index) { return m_items[checked(index)]; }
  const T& at(size_type index) const { return m_items[checked(index)]; }
  T& operator[](size_type index) { return at(index); }
  const T& operator[](size_type index) const { return at(index); }
  T& first() { return at(0); }
  const T& first() const { return at(0); }
  T& last() { return at(size() - 1); }
  const T& last() const { return at(size() - 1); }

  iterator begin() { return m_items.begin(); }
  iterator end() { return m_items.end(); }
  const_iterator begin() const { return m_items.begin(); }
  const_iterator end() const { return m_items.end(); }
  /// The items in one piece; valid until the array grows.
  T* asArrayPtr() { return m_items.data(); }
  const T* asArrayPtr() const { return m_items.data(); }
  const T* getPtr() const { return m_items.data(); }

  /// Appends and returns the index of the new item.
  size_type append(T item) {
    m_items.push_back(std::move(item));
    return size() - 1;
  }
  OdArray& append(const OdArray& other) {
    m_items.reserve(m_items.size() + other.m_items.size());
    std::copy_n(other.m_items.begin(), other.m_items.size(), std::back_inserter(m_items));
    return *this;
  }
  void push_back(T item) { m_items.push_back(std::move(item)); }
  /// Inserts before `index`, which may be the size.
  OdArray& insertAt(size_type index, T item) {
    if (index > size()) throw OdError_InvalidIndex();
    m_items.insert(m_items.begin() + index, std::move(item));
    return *this;
  }
  OdArray& removeAt(size_type index) {
    m_items.erase(m_items.begin() + checked(index));
    return *this;
  }
  OdArray& removeLast() { return removeAt(size() - 1); }
  /// Removes the first item that equals `item`; false when there is none.
  bool remove(const T& item) {
    const auto found = std::find(m_items.begin(), m_items.end(), item);
    if (found == m_items.end()) return false;
    m_items.erase(found);
    return true;
  }

  bool contains(const T& item) const { return std::find(begin(), end(), item) != end(); }
  /// Finds the first item at or after `start` that equals `item`.
  bool find(const T& item, size_type& foundAt, size_type start = 0) const {
    if (start >= size()) return false;
    const auto found = std::find(begin() + start, end(), item);
    if (found == end()) return false;
    foundAt = static_cast<size_type>(found - begin());
    return true;
  }

  void reserve(size_type count) { m_items.reserve(count); }
  void resize(size_type count) { m_items.resize(count); }
  void resize(size_type count, const T& item) { m_items.resize(count, item); }
  void clear() { m_items.clear(); }

  friend bool operator==(const OdArray& a, const OdArray& b) { return a.m_items == b.m_items; }

private:
  size_type checked(size_type index) const {
    if (index >= m_items.size()) throw OdError_InvalidIndex();
    return index;
  }

  std::vector<T> m_items;
};
