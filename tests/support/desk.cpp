#include "tests/support/desk.h"

#include <string>

#include "database/undo/undo_operations.h"
#include "entities/entity.h"
#include "interaction/input_loop.h"

namespace {

constexpr int kWidth = 200;
constexpr int kHeight = 100;

std::string promptRows() {
  std::string rows;
  for (int row = 1; row <= 71; ++row)
    rows += "P" + std::to_string(row) + ":;\n";
  return rows + "invalid;\nunknown;\n";
}

PlatformContext contextWith(qdr::HeadlessPlatform& platform, qdr::MemoryFiles& files) {
  platform.files = &files;
  return platform.context();
}

}  // namespace

namespace qdr::test {

LRESULT Desk::View::WindowProc(unsigned message, WPARAM wParam, LPARAM lParam) {
  if (message == kCoordinateMessage)
    desk->drawing->SetCoordinate(this, &desk->m_pane, wParam, lParam);
  if (message == WM_COMMAND) commands.push_back(static_cast<unsigned>(wParam));
  if (message == WM_CHAR) desk->m_input.onMyChar(static_cast<unsigned>(wParam), 1, 0);
  return 0;
}

Desk::Desk()
    : m_installed(contextWith(m_platform, m_files)),
      m_peer(m_view, CSize(kWidth, kHeight)),
      m_pixels(PixelBuffer::create(kWidth, kHeight)),
      m_raster(m_pixels),
      m_dc(&m_raster) {
  m_view.desk = this;
  m_files.put(L"/data/en.msg", promptRows());
  m_files.put(L"/data/QdrDb.cmd",
              "; commands\n40001 line L;rest\n40003\tcircle  c\t;\n40024 erase;\n1 noend\n");
  m_platform.system.module = L"/data/host";
  m_prompts = std::make_unique<CQdrPromptHandler>(L"/data/en.msg");
  _hPROMPT = m_prompts.get();
  drawing = std::make_unique<CQdrDbDatabase>(true);
  _gpDatabase = drawing.get();
  handler().SetDatabase(drawing.get());
  handler().SetDispWindow(&m_view);
  handler().setMsgWindow(&m_log, &m_input);
  m_dc.SetBkColor(0);
  script().setView(&m_view, &m_peer);
  record().setView(&m_view, &m_dc);
  drawing->m_pDC = &m_dc;
  drawing->m_vars.limitsMax.set(kWidth, kHeight);
  record().ZoomAll();
  record().MakeUpDisplayWindow(&m_dc);
}

Desk::~Desk() {
  handler().ClearTracker(true);
  record().setView(nullptr, nullptr);
  _gpDatabase = nullptr;
  drawing.reset();
  _hPROMPT = nullptr;
}

CQdrDbEntity* Desk::run(QdrDb::CommandID id, unsigned long option) {
  CQdrDbEntity* const made = handler().DoCommand(id, option);
  if (made && !made->IsDbEntity()) {
    CQdrDbObjectId entityId;
    drawing->addEntity(made, entityId);
    tagUndoEditEntity record;
    record.operation = kUndoRestored;
    record.continued = 0;
    record.entityId = entityId;
    drawing->m_undoHandler.AddUndo(record);
  }
  return made;
}

void Desk::paint() {
  record().Draw(&m_dc);
}

void Desk::resize(int width, int height) {
  m_peer.resize(CSize(width, height));
}

std::vector<Pixel> Desk::pixels() const {
  std::vector<Pixel> all;
  for (int y = 0; y < m_pixels->height(); ++y)
    all.insert(all.end(), m_pixels->row(y), m_pixels->row(y) + m_pixels->width());
  return all;
}

std::wstring Desk::log() const {
  CString text;
  m_log.GetWindowText(text);
  return text.text();
}

std::wstring Desk::inputLine() const {
  CString text;
  m_input.GetWindowText(text);
  return text.text();
}

std::wstring Desk::status() const {
  CString text;
  m_pane.GetWindowText(text);
  return text.text();
}

}  // namespace qdr::test
