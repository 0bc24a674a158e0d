// Makes a drawing through the class interface, saves it, and loads it again.
// usage: make_drawing FILE.kov

#include <cstdio>

#include "qdr.h"

namespace {

// Entities belong to the drawing once they are added.
void add(CQdrDbDatabase& drawing, CQdrDbEntity* entity) {
  CQdrDbObjectId id;
  drawing.addEntity(entity, id);
}

void drawFlange(CQdrDbDatabase& drawing) {
  const CQdrGePoint2d center(150.0, 100.0);
  add(drawing, new CQdrDbRect(CQdrGePoint2d(70.0, 180.0), CQdrGePoint2d(230.0, 20.0)));
  add(drawing, new CQdrDbCircle(center, 60.0));
  add(drawing, new CQdrDbCircle(center, 25.0));
  for (int hole = 0; hole < 6; ++hole) {
    const CQdrGeVector2d direction(hole * 3.141592653589793 / 3.0);
    add(drawing, new CQdrDbCircle(center + direction * 42.0, 5.0));
  }
  auto* axis = new CQdrDbLine(CQdrGePoint2d(60.0, 100.0), CQdrGePoint2d(240.0, 100.0));
  add(drawing, axis);
  axis->setColor(1);
  axis->setLineType(L"Hidden");
}

bool save(CQdrDbDatabase& drawing, const CString& path) {
  CFile file;
  if (!file.Open(path, CFile::modeCreateWrite)) {
    std::fprintf(stderr, "make_drawing: %s\n", file.lastError().c_str());
    return false;
  }
  CArchive archive(&file, CArchive::store);
  drawing.Save(archive);
  // Only now the earlier file is replaced; until here it is untouched.
  if (file.Close()) return true;
  std::fprintf(stderr, "make_drawing: %s\n", file.lastError().c_str());
  return false;
}

bool load(CQdrDbDatabase& drawing, const CString& path) {
  CFile file;
  if (!file.Open(path, CFile::modeRead)) {
    std::fprintf(stderr, "make_drawing: %s\n", file.lastError().c_str());
    return false;
  }
  CArchive archive(&file, CArchive::load);
  drawing.Read(archive);
  return file.Close();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_drawing FILE.kov\n");
    return 2;
  }
  const CString path(argv[1]);

  CQdrDbDatabase drawing(true);
  _gpDatabase = &drawing;
  drawFlange(drawing);
  if (!save(drawing, path)) return 3;

  CQdrDbDatabase loaded(true);
  _gpDatabase = &loaded;
  if (!load(loaded, path)) return 3;
  std::printf("%s holds %zu entities\n", argv[1],
              static_cast<std::size_t>(loaded.m_blockTable.getCurrentRecord()->getNumEntity()));
  _gpDatabase = nullptr;
  return 0;
}
