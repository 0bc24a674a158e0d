// Links the installed library, saves a drawing and counts what a second database loads from it.

#include <qdr.h>

#include <cstdio>

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  const CString path(argv[1]);
  CQdrDbDatabase drawing(true);
  _gpDatabase = &drawing;
  CQdrDbObjectId id;
  drawing.addEntity(new CQdrDbLine(CQdrGePoint2d(0, 0), CQdrGePoint2d(30, 40)), id);
  drawing.addEntity(new CQdrDbCircle(CQdrGePoint2d(10, 10), 5), id);
  drawing.SaveAs(path);

  CQdrDbDatabase loaded(true);
  _gpDatabase = &loaded;
  CFile file;
  if (!file.Open(path, CFile::modeRead)) {
    std::fprintf(stderr, "consumer: %s\n", file.lastError().c_str());
    return 1;
  }
  CArchive archive(&file, CArchive::load);
  loaded.Read(archive);
  const auto count = loaded.m_blockTable.getCurrentRecord()->getNumEntity();
  _gpDatabase = nullptr;
  if (count == 2) return 0;
  std::fprintf(stderr, "consumer: %d entities instead of 2\n", static_cast<int>(count));
  return 1;
}
