#pragma once

#include "platform/gdi_objects.h"

namespace qdr {

/// The place of one kind of object in a device context. Every object knows the slots that hold it,
/// so that its end puts the stock object back. Stock objects keep no such list: they never end.
class SelectionSlot {
 public:
  explicit SelectionSlot(CGdiObject* stock) : m_object(stock), m_stock(stock) {}
  ~SelectionSlot() { unlink(); }
  SelectionSlot(const SelectionSlot&) = delete;
  SelectionSlot& operator=(const SelectionSlot&) = delete;

  CGdiObject* object() const { return m_object; }

  /// Puts `object` in place of the present one, which is the answer.
  CGdiObject* select(CGdiObject* object) {
    CGdiObject* previous = m_object;
    unlink();
    m_object = object;
    m_changed = true;
    link();
    return previous;
  }

  /// True after a change of object or content until it is accepted.
  bool isChanged() const { return m_changed; }
  void acceptChange() { m_changed = false; }

 private:
  friend class ::CGdiObject;

  void link() {
    if (m_object == m_stock || !m_object) return;
    m_next = m_object->m_selections;
    m_place = &m_object->m_selections;
    if (m_next) m_next->m_place = &m_next;
    m_object->m_selections = this;
  }

  void unlink() {
    if (!m_place) return;
    *m_place = m_next;
    if (m_next) m_next->m_place = m_place;
    m_next = nullptr;
    m_place = nullptr;
  }

  CGdiObject* m_object;
  CGdiObject* m_stock;
  SelectionSlot* m_next = nullptr;
  SelectionSlot** m_place = nullptr;
  bool m_changed = true;
};

}  // namespace qdr
