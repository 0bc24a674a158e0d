// Opening and saving.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <memory>
#include <utility>

#include "database/database.h"
#include "database/file/drawing_scanner.h"
#include "hostcore/drawing_host.h"
#include "hostcore/internal/cobweb_stand_ins.h"
#include "hostcore/internal/creation_numbers.h"
#include "platform/file.h"
#include "platform/file_path.h"
#include "platform/headless/memory_file.h"
#include "platform/system.h"

namespace {

using qdr::HostAnswer;
using qdr::HostFault;

constexpr const wchar_t* kExtension = L"kov";
constexpr const wchar_t* kBackup = L"bak";
constexpr const wchar_t* kApplication = L"K-Ova";
constexpr std::uint64_t kPlaneBytes = 32;
constexpr std::uint64_t kFixedBytes =
    qdr::kHeaderBytes + qdr::kVarsBytes + qdr::kDimVarsBytes + kPlaneBytes;
constexpr const wchar_t* kStandIns =
    L"A drawing file holds no cobwebs: circles and lines are stored in their place.";
constexpr int kArchiveBuffer = 4096;

bool isDrawingName(const std::wstring& path) {
  return qdr::extensionOf(path.c_str()).CompareNoCase(kExtension) == 0;
}

HostAnswer fileFault(const std::wstring& path, const std::wstring& reason) {
  return {HostFault::file, path + L": " + reason};
}

// The bytes of a drawing. The reader compares nothing and takes any bytes, so what is no drawing is
// told from one here.
HostAnswer drawingBytes(const std::wstring& path, std::string& bytes) {
  if (!isDrawingName(path)) return fileFault(path, L"the name of a drawing ends in .kov");
  std::string reason;
  if (!qdr::readWholeFile(path.c_str(), bytes, reason))
    return fileFault(path, qdr::fromUtf8(reason));
  if (bytes.size() < kFixedBytes) return fileFault(path, L"too short for a drawing");
  QdrDbFileHeader_tag header;
  std::memcpy(&header, bytes.data(), sizeof header);
  if (header.applicationName.text() != kApplication) return fileFault(path, L"no drawing");
  return {};
}

template <std::size_t N>
void copyText(wchar_t (&field)[N], const std::wstring& text) {
  field[text.copy(field, N - 1)] = L'\0';
}

// The reader drops the rows of project information and revisions: they come from the bytes. Adding
// a row advances the number of the next one, which was read already.
void refillRows(CQdrDbDatabase& database, const qdr::DroppedRows& rows) {
  CQdrDbProjectInfoTable& projectInfo = database.m_projectInfoTable;
  const std::uint32_t next = projectInfo.GetNextName();
  for (const qdr::ProjectInfoRow& row : rows.projectInfo) {
    auto record = std::make_unique<CQdrDbProjectInfoTableRecord>(&database);
    record->setOwnerId(database.ProjectInfoTable());
    record->setName(row.name.c_str());
    record->m_first = row.first;
    record->m_second = row.second;
    copyText(record->m_text, row.text);
    if (projectInfo.add(record.get())) record.release();
  }
  projectInfo.setNextName(next);
  for (const qdr::RevisionRow& row : rows.revisions) {
    auto record = std::make_unique<CQdrDbRevisionTableRecord>(&database);
    record->setOwnerId(database.RevisionTable());
    record->setName(row.name.c_str());
    record->m_number = row.number;
    copyText(record->m_firstText, row.texts[0]);
    copyText(record->m_secondText, row.texts[1]);
    copyText(record->m_thirdText, row.texts[2]);
    if (database.m_revisionTable.add(record.get())) record.release();
  }
}

void readInto(CQdrDbDatabase& database, std::string bytes) {
  const qdr::DroppedRows rows = qdr::scanDroppedRows(bytes);
  qdr::MemoryFile file(std::move(bytes));
  CArchive archive(&file, CArchive::load, kArchiveBuffer, nullptr);
  database.Read(archive);
  archive.Close();
  database.m_pFile = nullptr;
  refillRows(database, rows);
  // A new entity that bore the number of a loaded one would not enter its block.
  CQdrDbObject::NextHardID = std::max(CQdrDbObject::NextHardID, qdr::largestNumber(database) + 1);
}

}  // namespace

namespace qdr {

// Null, and the reason in `answer`, when the file holds no drawing or cannot be read. The present
// drawings stay as they are.
std::unique_ptr<DrawingHost::OpenDrawing> DrawingHost::loadedDrawing(const std::wstring& path,
                                                                     HostAnswer& answer) {
  std::string bytes;
  answer = drawingBytes(path, bytes);
  if (!answer) return nullptr;
  std::unique_ptr<OpenDrawing> drawing;
  const bool done = guarded([&] {
    drawing = freshDrawing();
    drawing->path = path;
    // Boxes of entities ask the active drawing while the file is read.
    _gpDatabase = drawing->database.get();
    readInto(*drawing->database, std::move(bytes));
  });
  _gpDatabase = &database();
  if (done) return drawing;
  answer = fileFault(path, L"cannot be read");
  return nullptr;
}

// The earlier file as it is before the save replaces it. A backup that fails does not keep the
// drawing from being saved.
void DrawingHost::keepBackup(const std::wstring& path) {
  std::string bytes;
  std::string reason;
  if (!readWholeFile(path.c_str(), bytes, reason)) return;  // there is no earlier file
  const std::wstring backup = path.substr(0, path.size() - std::wcslen(kExtension)) + kBackup;
  CFile file;
  bool kept = file.Open(backup.c_str(), CFile::modeCreateWrite);
  for (std::size_t at = 0; kept && at < bytes.size(); at += kArchiveBuffer) {
    const std::size_t count = std::min<std::size_t>(kArchiveBuffer, bytes.size() - at);
    file.Write(bytes.data() + at, static_cast<unsigned>(count));
  }
  kept = kept && file.Close();
  if (!kept) AfxMessageBox((backup + L": " + fromUtf8(file.lastError())).c_str());
}

HostAnswer DrawingHost::save(const std::wstring& path) {
  if (isBusy()) return {HostFault::busy, L"a command is running"};
  if (!isDrawingName(path)) return fileFault(path, L"the name of a drawing ends in .kov");
  CFile file;
  if (!file.Open(path.c_str(), CFile::modeCreateWrite))
    return fileFault(path, fromUtf8(file.lastError()));
  CArchive archive(&file, CArchive::store, kArchiveBuffer, nullptr);
  bool replaced = false;
  // Without a Close the earlier file stays.
  const bool written = guarded([&] {
    const CobwebStandIns standIns(database());
    database().Save(archive);
    replaced = standIns.any();
  });
  archive.Close();
  if (written && m_keepsBackups) keepBackup(path);
  const bool stored = written && file.Close();
  database().m_pFile = nullptr;
  if (!stored) {
    m_drawing->modified = true;
    return fileFault(path, fromUtf8(file.lastError()));
  }
  m_drawing->path = path;
  m_drawing->modified = false;
  if (replaced && !std::exchange(m_drawing->toldOfStandIns, true)) AfxMessageBox(kStandIns);
  return {};
}

}  // namespace qdr
