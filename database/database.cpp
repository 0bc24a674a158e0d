#include "database/database.h"

#include <utility>

#include "database/entity_access.h"

CQdrDbDatabase::CQdrDbDatabase(bool withPaperSpace)
    : m_layerTable(nullptr),
      m_colorTable(nullptr),
      m_linetypeTable(nullptr),
      m_blockTable(nullptr),
      m_displayTable(nullptr),
      m_textStyleTable(nullptr),
      m_symbolTable(nullptr),
      m_entityTable(nullptr),
      m_projectInfoTable(nullptr),
      m_revisionTable(nullptr),
      m_commandHandler(nullptr) {
  InitDatabase(withPaperSpace);
}

CQdrDbDatabase::~CQdrDbDatabase() {
  m_closing = true;
  delete m_pExtension;
}

void CQdrDbDatabase::InitDatabase(bool withPaperSpace) {
  m_pFile = nullptr;
  m_pDC = nullptr;
  m_pExtension = nullptr;
  m_plane = CQdrGePlane::kXYPlane;
  CQdrDbTable* const tables[] = {
      &m_layerTable,   &m_colorTable,  &m_linetypeTable, &m_textStyleTable,   &m_blockTable,
      &m_displayTable, &m_symbolTable, &m_entityTable,   &m_projectInfoTable, &m_revisionTable};
  for (CQdrDbTable* table : tables)
    table->setDatabase(this);
  m_lastPoint = CQdrGePoint2d::kOrigin;
  m_lastEntity = nullptr;
  // Layers refer to linetypes and colours, so those come first.
  m_linetypeTable.initLinetypeTable();
  m_linetypeTable.getAt(L"ByLayer", m_currentLinetypeId);
  m_colorTable.initColorTable();
  m_colorTable.getAt(L"256", m_currentColorId);
  m_layerTable.initLayerTable();
  m_layerTable.getAt(L"0", m_currentLayerId);
  m_textStyleTable.initTextStyleTable();
  m_textStyleTable.getAt(L"STANDARD", m_currentTextStyleId);
  m_blockTable.initBlockTable(withPaperSpace);
}

CString CQdrDbDatabase::FilePath() const {
  return CString(m_header.folder.text());
}

CString CQdrDbDatabase::Author() const {
  return CString(m_header.userName.text());
}

CString CQdrDbDatabase::Date() const {
  return CString(m_header.date.text());
}

CString CQdrDbDatabase::FileVersion() const {
  return CString(m_header.version.text());
}

void CQdrDbDatabase::setFilePath(const CString& folder) {
  m_header.folder = folder;
}

void CQdrDbDatabase::setAuthor(const CString& author) {
  m_header.userName = author;
}

void CQdrDbDatabase::setDate(const CString& date) {
  m_header.date = date;
}

void CQdrDbDatabase::setFileVersion(const CString& version) {
  m_header.version = version;
}

CDC* CQdrDbDatabase::screenDC() {
  const CQdrDbDisplayTableRecord* display = m_displayTable.getCurrentRecord();
  return display && display->getDC() ? display->getDC() : m_pDC;
}

void CQdrDbDatabase::DrawEntities(QdrDb::ClassType type) {
  wchar_t keyword[CQdrDbTableRecord::kNameSize] = {};
  CQdrDbEntityTableRecord* record = nullptr;
  if (!m_pDC || !m_entityTable.has(type, keyword, record)) return;
  for (const CQdrDbObjectId& id : record->getEntitySet())
    if (CQdrDbEntity* entity = qdr::asEntity(id)) qdr::drawEntity(*entity, m_pDC);
}
