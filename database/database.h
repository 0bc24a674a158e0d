#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "database/block_table.h"
#include "database/color_table.h"
#include "database/entity_table.h"
#include "database/file/drawing_blocks.h"
#include "database/file/hard_id_map.h"
#include "database/layer_table.h"
#include "database/ltype_table.h"
#include "database/object_id.h"
#include "database/project_info_table.h"
#include "database/revision_table.h"
#include "database/symbol_table.h"
#include "database/text_style_table.h"
#include "database/undo/undo_handler.h"
#include "geometry/plane.h"
#include "geometry/point2d.h"
#include "interaction/command_handler.h"
#include "interaction/display/display_table.h"
#include "platform/export.h"
#include "platform/wide_string.h"

class CArchive;
class CDC;
class CFile;
class CQdrBuffDC;
class CQdrDbEntity;
class CQdrDbEntityTracker;
class CWnd;

/// What a host may hang on a database, which deletes it.
class QDR_API CQdrDbDatabaseExtension {
 public:
  virtual ~CQdrDbDatabaseExtension() = default;
};

/// One open drawing. Owns its tables, through them all records and entities, and the command and
/// undo handlers; nothing of it survives it. A host that deletes it first takes its trackers and
/// its view away and points _gpDatabase elsewhere. Not copyable.
class QDR_API CQdrDbDatabase {
 public:
  /// A drawing with the default records and the space "MODEL_SPACE", and "PAPER_SPACE" if asked.
  explicit CQdrDbDatabase(bool withPaperSpace);
  virtual ~CQdrDbDatabase();
  CQdrDbDatabase(const CQdrDbDatabase&) = delete;
  CQdrDbDatabase& operator=(const CQdrDbDatabase&) = delete;

  /// Writes the drawing to the archive's file; the file stays open.
  virtual void Save(CArchive& archive);

  /// Reads a drawing over the default records of a fresh database. Any bytes end and do no harm;
  /// what is missing keeps its default.
  virtual void Read(CArchive& archive);

  /// Part of construction: empty state, tables bound to this database, default records.
  void InitDatabase(bool withPaperSpace);

  CQdrDbObjectId LayerTable() { return m_layerTable.objectId(); }
  CQdrDbObjectId BlockTable() { return m_blockTable.objectId(); }
  CQdrDbObjectId LinetypeTable() { return m_linetypeTable.objectId(); }
  CQdrDbObjectId ColorTable() { return m_colorTable.objectId(); }
  CQdrDbObjectId DisplayTable() { return m_displayTable.objectId(); }
  CQdrDbObjectId TextStyleTable() { return m_textStyleTable.objectId(); }
  CQdrDbObjectId SymbolTable() { return m_symbolTable.objectId(); }
  CQdrDbObjectId EntityTable() { return m_entityTable.objectId(); }
  CQdrDbObjectId ProjectInfoTable() { return m_projectInfoTable.objectId(); }
  CQdrDbObjectId RevisionTable() { return m_revisionTable.objectId(); }

  QdrDbFileHeader_tag* FileInfo() { return &m_header; }

  // Fields of the header; setters cut at the length of the field.
  CString FilePath() const;
  CString Author() const;
  CString Date() const;
  CString FileVersion() const;
  void setFilePath(const CString& folder);
  void setAuthor(const CString& author);
  void setDate(const CString& date);
  void setFileVersion(const CString& version);

  CQdrGePoint2d lastPoint() const { return m_lastPoint; }
  void setLastPoint(const CQdrGePoint2d& point) { m_lastPoint = point; }

  /// Takes an entity over into the current space and every index; a hatch brings its boundaries
  /// along. Records no undo. `id` takes the entity's id. Nothing happens for null.
  void addEntity(CQdrDbEntity* entity, CQdrDbObjectId& id);

  /// The same without the boundaries of a hatch.
  void addEntitySub(CQdrDbEntity* entity, CQdrDbObjectId& id);

  /// Takes an entity out of its block and every index; it is the caller's then.
  void removeEntity(CQdrDbEntity* entity);

  /// Draws the current display record into its device context, if it has a view.
  void Draw();

  /// Draws all entities of a class's keyword into m_pDC.
  void DrawEntities(QdrDb::ClassType type);

  /// Renders the current view into the thumbnail of the header; without an active view it stays.
  void DrawThumnail();

  /// Answers message 1124: ortho and grid snap act on the caller's point, and the status pane shows
  /// it. `wParam` and `lParam` are addresses of points; see interaction/display.
  void SetCoordinate(CWnd* view, CWnd* pane, std::uintptr_t wParam, std::intptr_t lParam);

  /// Saves to a path; nothing happens when it cannot be opened.
  void SaveAs(const CString& path);

  /// Looks for the drawing and its backup and leaves both alone; backups are the host's.
  void MakeBakFile(const CString& path);

  /// Saves copies of entities as a drawing of its own with this base point, and says so in a
  /// message box. Nothing happens for an empty vector; this drawing stays as it is.
  void WriteAsBlock(const CString& path, const CQdrGePoint2d& basePoint,
                    std::vector<CQdrDbEntity*>* entities, const CString& description);

  /// Brings the model space of a drawing in as a block named after the file, shifted by minus its
  /// base point. Null when the file cannot be opened. The block table owns the result.
  CQdrDbBlockTableRecord* ReadAsBlock(const CString& path);

  /// Makes sure that what the entity uses exists in another database, by name.
  void WriteAsBlockPropertySub(CQdrDbEntity* entity, CQdrDbDatabase* target);

  /// Where temporary marks are drawn: the device context of the current display record, else m_pDC;
  /// null when there is none, and then nothing is drawn.
  CDC* screenDC();

  /// Tells the view of its block that an entity of the drawing has other geometry or looks.
  void entityChanged(CQdrDbObject& entity);
  /// Tells the views that entities may draw wider than before, through a change of their layer.
  void looksChanged() { ++m_looksVersion; }
  std::uint64_t looksVersion() const { return m_looksVersion; }

  /// Asks for a repaint of the current view, background included, if there is one.
  void invalidateView();

  /// Takes entities that are about to be deleted out of everything that names them: indices,
  /// handlers, undo lists, hatches and inserts. Costs one walk of the undo lists for all of them.
  void forgetEntities(const std::vector<CQdrDbEntity*>& entities);

  /// True once destruction has begun. From then on nothing is taken out singly.
  bool isClosing() const { return m_closing; }

  /// What the numbers of a file stand for while it is read.
  qdr::HardIdMap& hardIds() { return m_hardIds; }
  const qdr::HardIdMap& hardIds() const { return m_hardIds; }

  /// Keeps the buffer of the last paint for fast repaints; the earlier one goes.
  void setLastBuffer(std::shared_ptr<CQdrBuffDC> buffer) { m_lastBuffer = std::move(buffer); }
  CQdrBuffDC* lastBuffer() const { return m_lastBuffer.get(); }

  /// The tracker whose loop runs; null when none does.
  void setCurrentTracker(CQdrDbEntityTracker* tracker) { m_currentTracker = tracker; }
  CQdrDbEntityTracker* currentTracker() const { return m_currentTracker; }

  CDC* m_pDC = nullptr;                             ///< the host's; null means no screen
  CQdrDbDatabaseExtension* m_pExtension = nullptr;  ///< owned
  CFile* m_pFile = nullptr;                         ///< of the save or read under way
  QdrDbFileHeader_tag m_header;
  QdrDbDrawingVars_tag m_vars;
  QdrDbDimVars_tag m_dimVars;
  CQdrGePoint2d m_lastPoint;
  CQdrDbEntity* m_lastEntity = nullptr;  ///< added last; null once that one is removed
  CQdrGePlane m_plane;
  CQdrDbObjectId m_currentLayerId;
  CQdrDbObjectId m_currentLinetypeId;
  CQdrDbObjectId m_currentColorId;
  CQdrDbObjectId m_currentTextStyleId;
  CQdrDbLayerTable m_layerTable;
  CQdrDbColorTable m_colorTable;
  CQdrDbLTypeTable m_linetypeTable;
  CQdrDbBlockTable m_blockTable;
  CQdrDbDisplayTable m_displayTable;
  CQdrDbTextStyleTable m_textStyleTable;
  CQdrDbSymbolTable m_symbolTable;
  CQdrDbEntityTable m_entityTable;
  CQdrDbProjectInfoTable m_projectInfoTable;
  CQdrDbRevisionTable m_revisionTable;
  CQdrCommandHandler m_commandHandler;
  CQdrUndoHandler m_undoHandler;
  std::int32_t m_reserved = 0;

 private:
  void forgetInSets(CQdrDbEntity& entity);
  void forgetInDisplays(const qdr::EntitySet& gone);
  void forgetInKeepers(QdrDb::ClassType keeperClass, const qdr::EntitySet& gone);

  // Shared, because a shared owner needs no complete class here.
  std::shared_ptr<CQdrBuffDC> m_lastBuffer;
  CQdrDbEntityTracker* m_currentTracker = nullptr;
  qdr::HardIdMap m_hardIds;
  std::uint64_t m_looksVersion = 0;
  bool m_closing = false;
};
