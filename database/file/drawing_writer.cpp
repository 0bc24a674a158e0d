// Writes a drawing: the fixed blocks, the plane, then the tables in the order of dependence.

#include "database/database.h"
#include "database/file/field_stream.h"
#include "platform/file.h"
#include "platform/file_path.h"
#include "platform/system.h"

namespace {

constexpr DWORD kNameCharacters = 33;

// Both names are those of the first save and stay for the life of the file.
void stampOrigin(QdrDbFileHeader_tag& header) {
  wchar_t name[kNameCharacters] = {};
  DWORD size = kNameCharacters;
  if (header.computerName.isEmpty() && GetComputerNameW(name, &size)) header.computerName = name;
  size = kNameCharacters;
  if (header.userName.isEmpty() && GetUserNameW(name, &size)) header.userName = name;
}

CString localDate() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  CString date;
  date.Format(L"%04d-%02d-%02d", now.wYear, now.wMonth, now.wDay);
  return date;
}

// A file name without a full stop gives an empty title.
void stampPlace(QdrDbFileHeader_tag& header, const CString& path) {
  const CString name = qdr::fileNameOf(path);
  header.folder = qdr::folderOf(path);
  header.title = name.Left(name.ReverseFind(L'.'));
}

const wchar_t* nameOf(const CQdrDbObjectId& record) {
  return record.isNull() ? L"" : static_cast<CQdrDbTableRecord*>(record.getPObject())->getName();
}

void refreshCurrentNames(CQdrDbDatabase& database) {
  QdrDbDrawingVars_tag& vars = database.m_vars;
  constexpr std::int16_t kByLayer = 256;
  const auto* color = static_cast<CQdrDbColorTableRecord*>(database.m_currentColorId.getPObject());
  vars.currentColorIndex = color ? static_cast<std::int16_t>(color->colorIndex()) : kByLayer;
  vars.currentLayer = nameOf(database.m_currentLayerId);
  vars.currentLinetype = nameOf(database.m_currentLinetypeId);
  vars.currentTextStyle = nameOf(database.m_currentTextStyleId);
}

}  // namespace

void CQdrDbDatabase::Save(CArchive& archive) {
  m_pFile = archive.GetFile();
  if (!m_pFile) return;
  const CString path = m_pFile->GetFilePath();
  stampOrigin(m_header);
  m_header.date = localDate();
  stampPlace(m_header, path);
  DrawThumnail();
  MakeBakFile(path);
  qdr::writeRaw(m_pFile, &m_header, sizeof m_header);
  refreshCurrentNames(*this);
  qdr::writeRaw(m_pFile, &m_vars, sizeof m_vars);
  qdr::writeRaw(m_pFile, &m_dimVars, sizeof m_dimVars);
  m_plane.save(m_pFile);
  CQdrDbTable* const tables[] = {&m_colorTable,     &m_linetypeTable, &m_layerTable,
                                 &m_textStyleTable, &m_symbolTable,   &m_projectInfoTable,
                                 &m_revisionTable,  &m_blockTable};
  for (CQdrDbTable* table : tables)
    table->save();
}

void CQdrDbDatabase::SaveAs(const CString& path) {
  CFile file;
  if (!file.Open(path, CFile::modeCreateWrite)) return;
  CArchive archive(&file, CArchive::store, 4096, nullptr);
  Save(archive);
  archive.Close();
  file.Close();
  m_pFile = nullptr;
}

// The drawing is being written to a sibling at this point, so its path still holds the version of
// the last save. It stays where it is: the rename that ends a save replaces it in one step, and a
// host that wants backups copies it before.
void CQdrDbDatabase::MakeBakFile(const CString& path) {
  CFileFind drawing;
  if (!drawing.FindFile(path)) return;
  const CString backup = path.Left(path.ReverseFind(L'.')) + L".bak";
  CFileFind earlier;
  earlier.FindFile(backup);
}
