#pragma once

#include <cstddef>
#include <unordered_set>
#include <vector>

#include "database/id_set.h"
#include "database/table_record.h"
#include "platform/export.h"
#include "platform/wide_string.h"

class CQdrDbCurve;
class CQdrDbDisplayTableRecord;
class CQdrDbEntity;
class CQdrDbEntSetIterator;

/// A space or a block definition. It owns its entities, erased ones included, and deletes them with
/// itself. Its display record bears its name and belongs to the display table.
///
/// An entity whose creation number another one of the block bears cannot stand in the set; it is
/// kept aside, unseen, and dies with the block. So is one whose creation was undone.
class QDR_API CQdrDbBlockTableRecord : public CQdrDbTableRecord {
 public:
  explicit CQdrDbBlockTableRecord(CQdrDbDatabase* database);
  ~CQdrDbBlockTableRecord() override;

  /// Copies the entities of another block and brings what they use into this record's database, by
  /// name. The name stays; nothing happens on itself.
  CQdrDbBlockTableRecord& operator=(CQdrDbBlockTableRecord& source);

  /// Finds or makes the display record of this block's name. A found one becomes current; a made
  /// one only for "MODEL_SPACE" in any case or a name that begins with "PAPER_SPACE".
  void initDisplayRec();
  CQdrDbDisplayTableRecord* getDisplayRecord() const { return m_displayRecord; }
  void setDisplayRecord(CQdrDbDisplayTableRecord* record) { m_displayRecord = record; }

  /// Takes an entity over and enters it in the display record; out of the block that had it before.
  /// Answers getNumEntity.
  std::size_t addEntity(const CQdrDbObjectId& id);

  /// The reverse; the owner id stays as it is and the entity is the caller's. Answers getNumEntity.
  std::size_t removeEntity(const CQdrDbObjectId& id);

  /// Holds an entity that stands in no set until addEntity takes it back; it dies with the block.
  void keepAside(const CQdrDbObjectId& id);

  /// Inserts that refer to this block. Both answer the number of them.
  std::size_t addReference(const CQdrDbObjectId& id);
  std::size_t removeReference(const CQdrDbObjectId& id);
  std::size_t ClearReferenceSet();
  std::set<CQdrDbObjectId>& getReferenceSet() { return m_referenceSet; }

  /// An iterator for the caller to delete. False and `iterator` untouched for an empty block.
  bool newIterator(CQdrDbEntSetIterator*& iterator, bool atStart = true);

  std::size_t getNumEntity() const { return m_entitySet.size(); }
  std::set<CQdrDbObjectId>& getEntitySet() { return m_entitySet; }
  std::set<CQdrDbObjectId>& getAttDefSet() { return m_attDefSet; }

  /// All entities that die with the block: erased ones, attribute definitions and those aside too.
  std::vector<CQdrDbEntity*> ownedEntities() const;

  /// Deletes the entities that are not erased and empties the set; the erased ones stay aside. -1
  /// for an empty block, else 0.
  int ClearEntity();

  /// Regenerates the hatches that the curve bounds when `kind` is 1.
  void OnCurveChanged(CQdrDbCurve* curve, int kind);

  /// Appends the text tables of the block.
  void GetTextTable(std::vector<CQdrDbEntity*>& tables);

  /// The first text table of this name in any case, or null.
  CQdrDbEntity* GetTextTable(const CString& name);

  /// The record as it stands in a file, entities included.
  void save() override;

  /// Reads the entities into the database, which this record joins as the current space.
  void read() override;

 private:
  std::set<CQdrDbObjectId>& setFor(const CQdrDbObjectId& id);
  void takeFromOtherBlock(const CQdrDbObjectId& id);

  qdr::IdSet m_attDefSet;
  qdr::IdSet m_entitySet;
  qdr::IdSet m_referenceSet;
  CQdrDbDisplayTableRecord* m_displayRecord = nullptr;
  std::unordered_set<CQdrDbObject*> m_aside;
};
