#pragma once

#include <cstdint>

#include "platform/export.h"

class CQdrDbDatabase;
class CQdrDbObject;

/// A reference to an object of a drawing: a live pointer, never an owner. Nothing warns an id that
/// its object is gone; whoever deletes an object takes it out of every place that names it first.
///
/// Ids order by the creation number of their objects, so every set of ids runs in the order of
/// creation. Null stands before everything and equals null. Operands are exact types: compare with
/// an id, an object pointer or a std::uint64_t, and write nullptr or std::uint64_t{0}, never 0.
class QDR_API CQdrDbObjectId {
 public:
  /// The null id.
  static const CQdrDbObjectId kNULL;

  CQdrDbObjectId() = default;
  CQdrDbObjectId(const CQdrDbObject* object);
  CQdrDbObjectId(const CQdrDbObjectId&) = default;
  CQdrDbObjectId& operator=(const CQdrDbObjectId&) = default;
  CQdrDbObjectId& operator=(const CQdrDbObject* object);
  virtual ~CQdrDbObjectId() = default;

  /// What the object's own isVisiable answers; false for a null id.
  virtual bool isVisiable() const;

  bool isNull() const { return m_object == nullptr; }
  void setNull() { m_object = nullptr; }
  void setPObject(CQdrDbObject* object) { m_object = object; }
  CQdrDbObject* getPObject() const { return m_object; }

  /// The object's database; null for a null id.
  CQdrDbDatabase* database() const;

  /// False for a null id.
  bool isErased() const;

  /// Writes the object through its database's file; a null id writes nothing.
  void save() const;

  // Identity: the same object.
  bool operator==(const CQdrDbObjectId& other) const { return m_object == other.m_object; }
  bool operator==(const CQdrDbObject* object) const { return m_object == object; }

  // Order: by creation number.
  bool operator<(const CQdrDbObjectId& other) const { return precedes(m_object, other.m_object); }
  bool operator>(const CQdrDbObjectId& other) const { return precedes(other.m_object, m_object); }
  bool operator<=(const CQdrDbObjectId& other) const { return !(*this > other); }
  bool operator>=(const CQdrDbObjectId& other) const { return !(*this < other); }
  bool operator<(const CQdrDbObject* object) const { return precedes(m_object, object); }
  bool operator>(const CQdrDbObject* object) const { return precedes(object, m_object); }
  bool operator<=(const CQdrDbObject* object) const { return !(*this > object); }
  bool operator>=(const CQdrDbObject* object) const { return !(*this < object); }

  // Against a number: by the object's hardObjectId, 0 for a null id.
  bool operator==(const std::uint64_t& number) const { return hardId() == number; }
  bool operator<(const std::uint64_t& number) const { return hardId() < number; }
  bool operator>(const std::uint64_t& number) const { return hardId() > number; }
  bool operator<=(const std::uint64_t& number) const { return hardId() <= number; }
  bool operator>=(const std::uint64_t& number) const { return hardId() >= number; }

  /// The object's hardObjectId; 0 for a null id. This is what a file stores for a reference.
  std::uint64_t hardId() const;

 private:
  static bool precedes(const CQdrDbObject* first, const CQdrDbObject* second);

  CQdrDbObject* m_object = nullptr;
};

// The comparisons look into the object; both headers come together.
#include "database/object.h"  // IWYU pragma: keep
