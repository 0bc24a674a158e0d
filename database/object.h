#pragma once

#include <cstdint>
#include <memory>

#include "database/class_type.h"
#include "database/object_id.h"
#include "database/property.h"
#include "platform/export.h"

class CFile;
class CQdrDbDatabase;

/// The database that an object joins when none is given. The host points it at the active drawing;
/// the library only reads it, and it may be null.
extern QDR_API CQdrDbDatabase* _gpDatabase;

/// Everything that lives in a drawing: a table, a record, an entity.
///
/// Identity is the address; across a file it is the creation number, which is also the order in
/// every set of ids. Numbers ascend but need not be consecutive, and a loaded object may bear the
/// number of another one. Assignment copies nothing.
class QDR_API CQdrDbObject {
 public:
  /// Bits of the status byte, which a file keeps as it stands.
  enum ObjectStatus : std::uint8_t {
    eInvisible = 0x01,
    eErased = 0x02,
    eEntity = 0x04,
    eHasAttribute = 0x08,  ///< the host's
    eCompound = 0x10,
    eUseNesting = 0x20,  ///< the host's
    eAttribute = 0x40,   ///< the host's
    eDimensionMark = 0x80,
    eDimension = eDimensionMark | eCompound | eEntity,
  };

  /// Number of the next object, one counter for all drawings of the process. 0 means unset: the
  /// next construction seeds it with the milliseconds of the clock, 0 to 999.
  static std::uint64_t NextHardID;

  virtual ~CQdrDbObject();

  /// Writes the head of 13 bytes (number, class type, status) to the database's file.
  virtual void save();

  /// Reads the head. The number becomes the creation number, so this comes before any id of the
  /// object enters a set; the class type read is dropped. A short file leaves what it misses.
  virtual void read();

  /// Neither invisible nor erased.
  virtual bool isVisiable() const { return (m_status & (eInvisible | eErased)) == 0; }

  virtual void setDatabase(CQdrDbDatabase* database) { m_database = database; }

  /// Fills properties() from the live object.
  virtual void makeProperty() = 0;

  CQdrDbObjectId objectId() const { return m_objectId; }
  CQdrDbObjectId ownerId() const { return m_ownerId; }
  CQdrDbObjectId attribId() const { return m_attribId; }
  void setObjectId(const CQdrDbObjectId& id) { m_objectId = id; }
  void setOwnerId(const CQdrDbObjectId& id) { m_ownerId = id; }
  void setAttribId(const CQdrDbObjectId& id) { m_attribId = id; }

  CQdrDbDatabase* database() const { return m_database; }
  QdrDb::ClassType classType() const { return m_classType; }

  bool isErased() const { return (m_status & eErased) != 0; }
  bool isEntity() const { return (m_status & eEntity) != 0; }
  bool hasAttribute() const { return (m_status & eHasAttribute) != 0; }
  bool isCompoundObject() const { return (m_status & eCompound) != 0; }
  bool isUseNesting() const { return (m_status & eUseNesting) != 0; }
  bool isAttribute() const { return (m_status & eAttribute) != 0; }

  /// All bits of eDimension are set.
  bool isDimension() const { return (m_status & eDimension) == eDimension; }

  void setInVisable() { setObjectStatus(eInvisible); }

  /// Clears eInvisible only: an erased object stays out of sight.
  void setVisable() { resetObjectStatus(eInvisible); }
  void setErased() { setObjectStatus(eErased); }

  /// Adds bits; always true.
  bool setObjectStatus(ObjectStatus bits);
  void resetObjectStatus(ObjectStatus bits);

  /// Stages the creation number for save.
  void setHardId() { m_hardId = m_createdTime; }

  /// The number that files store for this object: its creation number, which first takes the
  /// staged number if it is 0.
  std::uint64_t hardObjectId();

  std::uint64_t getCreatedTime() const { return m_createdTime; }

  /// Only before an id of this object enters a set, which would lose it otherwise.
  void setCreatedTime(std::uint64_t number) { m_createdTime = number; }

  /// Rebuilds the property sheet from the live object and answers it by class type and group.
  PropertyMap getProperty();

 protected:
  /// Draws a creation number; a null database means _gpDatabase.
  explicit CQdrDbObject(CQdrDbDatabase* database);

  /// A second name of the source: its creation number and its object id. Classes whose copies
  /// stand on their own construct anew and copy their fields instead.
  CQdrDbObject(const CQdrDbObject& source);

  CQdrDbObject& operator=(const CQdrDbObject&) { return *this; }

  /// Rows of the sheet by group, for makeProperty.
  PropertyGroups& properties();

  /// Files the groups in the sheet under this object's class type.
  void makePropertyMap();

  /// The file of the save or read under way; null without a database or a transfer.
  CFile* file() const;

  std::uint8_t m_status = 0;
  CQdrDbDatabase* m_database = nullptr;
  CQdrDbObjectId m_objectId;
  std::uint64_t m_hardId = 0;
  CQdrDbObjectId m_ownerId;
  CQdrDbObjectId m_attribId;
  QdrDb::ClassType m_classType = QdrDb::eClassNone;
  std::uint64_t m_createdTime = 0;

 private:
  // Made by the first query; most objects of a drawing are never asked.
  struct PropertySheet {
    PropertyMap byClass;
    PropertyGroups groups;
  };
  PropertySheet& sheet();

  template <class Stream>
  void headFields(Stream& stream);

  std::unique_ptr<PropertySheet> m_sheet;
};

/// Class of an object, 56 for null: the one question on which everything dispatches.
inline QdrDb::ClassType classTypeOf(const CQdrDbObject* object) {
  return object ? object->classType() : QdrDb::eClassNone;
}

inline CQdrDbObjectId::CQdrDbObjectId(const CQdrDbObject* object)
    : m_object(const_cast<CQdrDbObject*>(object)) {}

inline CQdrDbObjectId& CQdrDbObjectId::operator=(const CQdrDbObject* object) {
  m_object = const_cast<CQdrDbObject*>(object);
  return *this;
}

inline bool CQdrDbObjectId::precedes(const CQdrDbObject* first, const CQdrDbObject* second) {
  if (!first || !second) return second != nullptr && first == nullptr;
  return first->getCreatedTime() < second->getCreatedTime();
}
