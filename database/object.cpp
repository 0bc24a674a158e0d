#include "database/object.h"

#include <bit>

#include "database/database.h"
#include "database/file/field_stream.h"
#include "platform/system.h"

// Files are little-endian and numbers go into them as they stand in memory.
static_assert(std::endian::native == std::endian::little);

CQdrDbDatabase* _gpDatabase = nullptr;

const CQdrDbObjectId CQdrDbObjectId::kNULL;

std::uint64_t CQdrDbObject::NextHardID = 0;

bool CQdrDbObjectId::isVisiable() const {
  return m_object && m_object->isVisiable();
}

CQdrDbDatabase* CQdrDbObjectId::database() const {
  return m_object ? m_object->database() : nullptr;
}

bool CQdrDbObjectId::isErased() const {
  return m_object && m_object->isErased();
}

void CQdrDbObjectId::save() const {
  if (m_object) m_object->save();
}

std::uint64_t CQdrDbObjectId::hardId() const {
  return m_object ? m_object->hardObjectId() : 0;
}

CQdrDbObject::CQdrDbObject(CQdrDbDatabase* database)
    : m_database(database ? database : _gpDatabase), m_objectId(this) {
  if (NextHardID == 0) {
    // Each field of the clock is added to this object's number shifted by a byte, not to the
    // running seed, so the last field, the milliseconds, is all that stays.
    SYSTEMTIME now;
    GetSystemTime(&now);
    NextHardID = (m_createdTime << 8) + now.wMilliseconds;
  }
  m_createdTime = NextHardID++;
}

CQdrDbObject::CQdrDbObject(const CQdrDbObject& source)
    : m_status(source.m_status),
      m_database(source.m_database),
      m_objectId(source.m_objectId),
      m_hardId(source.m_hardId),
      m_ownerId(source.m_ownerId),
      m_attribId(source.m_attribId),
      m_classType(source.m_classType),
      m_createdTime(source.m_createdTime) {}

CQdrDbObject::~CQdrDbObject() = default;

template <class Stream>
void CQdrDbObject::headFields(Stream& stream) {
  if (!stream.number(m_hardId)) return;
  if constexpr (Stream::kReads) setCreatedTime(m_hardId);
  QdrDb::ClassType type = m_classType;  // the one in a file never changes that of an object
  stream.number(type);
  stream.number(m_status);
}

void CQdrDbObject::save() {
  setHardId();
  qdr::FieldWriter stream(file());
  headFields(stream);
}

void CQdrDbObject::read() {
  qdr::FieldReader stream(file());
  headFields(stream);
}

bool CQdrDbObject::setObjectStatus(ObjectStatus bits) {
  m_status = static_cast<std::uint8_t>(m_status | bits);
  return true;
}

void CQdrDbObject::resetObjectStatus(ObjectStatus bits) {
  m_status = static_cast<std::uint8_t>(m_status & ~bits);
}

std::uint64_t CQdrDbObject::hardObjectId() {
  if (m_createdTime == 0) m_createdTime = m_hardId;
  return m_createdTime;
}

CFile* CQdrDbObject::file() const {
  return m_database ? m_database->m_pFile : nullptr;
}

CQdrDbObject::PropertySheet& CQdrDbObject::sheet() {
  if (!m_sheet) m_sheet = std::make_unique<PropertySheet>();
  return *m_sheet;
}

PropertyGroups& CQdrDbObject::properties() {
  return sheet().groups;
}

void CQdrDbObject::makePropertyMap() {
  sheet().byClass[m_classType] = sheet().groups;
}

PropertyMap CQdrDbObject::getProperty() {
  m_sheet.reset();
  makeProperty();
  makePropertyMap();
  return sheet().byClass;
}
