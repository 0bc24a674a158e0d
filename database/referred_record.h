#pragma once

#include <cstddef>

#include "database/id_set.h"
#include "database/table_record.h"
#include "platform/export.h"

class CQdrDbEntSetIterator;

/// A record that entities refer to and that knows them: a record in use is not removed, and a
/// change of it reaches them. The set holds entities of the drawing only, in the order of creation,
/// and is in no file: adding an entity to the drawing fills it.
class QDR_API CQdrDbReferredRecord : public CQdrDbTableRecord {
 public:
  using CQdrDbTableRecord::CQdrDbTableRecord;

  void addRefEntity(const CQdrDbObjectId& id) { qdr::insertId(m_refEntities, id); }
  void removeRefEntity(const CQdrDbObjectId& id) { qdr::eraseId(m_refEntities, id); }
  std::size_t getNumEntity() const { return m_refEntities.size(); }
  std::set<CQdrDbObjectId>& getEntitySet() { return m_refEntities; }

  /// An iterator for the caller to delete.
  bool newIterator(CQdrDbEntSetIterator*& iterator, bool atStart = true);

 protected:
  /// The referring set belongs to the record and is never copied.
  CQdrDbReferredRecord& operator=(const CQdrDbReferredRecord&) { return *this; }

 private:
  qdr::IdSet m_refEntities;
};

/// The same with the layers that refer to the record.
class QDR_API CQdrDbLayerReferredRecord : public CQdrDbReferredRecord {
 public:
  using CQdrDbReferredRecord::CQdrDbReferredRecord;
  using CQdrDbReferredRecord::getEntitySet;

  void addLayerId(const CQdrDbObjectId& id) { qdr::insertId(m_refLayers, id); }
  void removeLayerId(const CQdrDbObjectId& id) { qdr::eraseId(m_refLayers, id); }
  std::size_t getNumLayer() const { return m_refLayers.size(); }

  /// Neither an entity nor a layer refers to it.
  bool isUnused() const { return getNumEntity() == 0 && m_refLayers.empty(); }

  /// Fills `ids` with the referring entities, and with those of the referring layers if asked.
  /// Answers how many there are.
  std::size_t getEntitySet(std::set<CQdrDbObjectId>& ids, bool withLayers);

 private:
  qdr::IdSet m_refLayers;
};
