// Tables of run-time classes. Each row registers one class and removes it again, and may carry
// columns of its own (what a layer attaches to its classes), so that one row says everything
// about one class. A table registers its rows in order, parents before children, and removes
// them in reverse.
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <vector>

class OdRxClass;

// The registration column of a row: the class's own rxInit and rxUninit, and the class itself
// while it is registered (null before and after).
struct OdRxClassRow {
  void (*init)();
  void (*uninit)();
  OdRxClass* (*desc)();
};

template <class T>
constexpr OdRxClassRow odrxClassRow() {
  return {&T::rxInit, &T::rxUninit, &T::desc};
}

// A table of Row, a struct whose member `cls` is its OdRxClassRow.
template <class Row>
class OdRxClassTable {
 public:
  OdRxClassTable() = default;
  OdRxClassTable(std::initializer_list<Row> rows) : m_rows(rows) {}

  // The rows of `tables`, one table after the other, then ordered stably by `rank(row)`, lower
  // first: rows of equal rank keep the order of their tables.
  template <class Rank>
  static OdRxClassTable merged(std::initializer_list<const OdRxClassTable*> tables, Rank rank) {
    OdRxClassTable result;
    for (const OdRxClassTable* table : tables)
      result.m_rows.insert(result.m_rows.end(), table->m_rows.begin(), table->m_rows.end());
    std::stable_sort(result.m_rows.begin(), result.m_rows.end(),
                     [&](const Row& a, const Row& b) { return rank(a) < rank(b); });
    return result;
  }

  void append(const Row& row) { m_rows.push_back(row); }

  // Registers the classes in row order. When one fails, the classes registered before it are
  // removed again and the error passes on.
  void rxInit() const {
    std::size_t done = 0;
    try {
      for (; done < m_rows.size(); ++done)
        m_rows[done].cls.init();
    } catch (...) {
      while (done > 0)
        m_rows[--done].cls.uninit();
      throw;
    }
  }
  // Removes the classes in reverse row order.
  void rxUninit() const {
    for (auto it = m_rows.rbegin(); it != m_rows.rend(); ++it)
      it->cls.uninit();
  }

  typename std::vector<Row>::const_iterator begin() const { return m_rows.begin(); }
  typename std::vector<Row>::const_iterator end() const { return m_rows.end(); }
  std::size_t size() const { return m_rows.size(); }

 private:
  std::vector<Row> m_rows;
};
