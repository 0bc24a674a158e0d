#include "tests/support/entity_text.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "database/entity_classes.h"
#include "entities/arc.h"
#include "entities/box.h"
#include "entities/circle.h"
#include "entities/cobweb.h"
#include "entities/cspline.h"
#include "entities/ellipse.h"
#include "entities/ellipse_arc.h"
#include "entities/line.h"
#include "entities/point.h"
#include "entities/polyline.h"
#include "entities/rect.h"
#include "entities/spiral.h"
#include "entities/spline.h"
#include "geometry/angle.h"
#include "platform/headless/memory_file.h"

namespace {

using Numbers = std::vector<double>;

struct Builder {
  std::string_view keyword;
  std::size_t count;
  std::unique_ptr<CQdrDbEntity> (*build)(const Numbers& n);
};

const Builder kBuilders[] = {
    {"line", 4,
     [](const Numbers& n) -> std::unique_ptr<CQdrDbEntity> {
       return std::make_unique<CQdrDbLine>(CQdrGePoint2d(n[0], n[1]), CQdrGePoint2d(n[2], n[3]));
     }},
    {"arc", 5,
     [](const Numbers& n) -> std::unique_ptr<CQdrDbEntity> {
       return std::make_unique<CQdrDbArc>(CQdrGePoint2d(n[0], n[1]), n[2], qdr::toRadians(n[3]),
                                          qdr::toRadians(n[4]));
     }},
    {"circle", 3,
     [](const Numbers& n) -> std::unique_ptr<CQdrDbEntity> {
       return std::make_unique<CQdrDbCircle>(CQdrGePoint2d(n[0], n[1]), n[2]);
     }},
    {"ellipse", 5,
     [](const Numbers& n) -> std::unique_ptr<CQdrDbEntity> {
       return std::make_unique<CQdrDbEllipse>(CQdrGePoint2d(n[0], n[1]), CQdrGeVector2d(n[2], n[3]),
                                              n[4]);
     }},
    {"ellipsearc", 7,
     [](const Numbers& n) -> std::unique_ptr<CQdrDbEntity> {
       return std::make_unique<CQdrDbEllipseArc>(CQdrGePoint2d(n[0], n[1]),
                                                 CQdrGeVector2d(n[2], n[3]), n[4],
                                                 qdr::toRadians(n[5]), qdr::toRadians(n[6]));
     }},
    {"box", 5,
     [](const Numbers& n) -> std::unique_ptr<CQdrDbEntity> {
       return std::make_unique<CQdrDbBox>(CQdrGePoint2d(n[0], n[1]), n[2], n[3],
                                          qdr::toRadians(n[4]));
     }},
    {"cobweb", 6,
     [](const Numbers& n) -> std::unique_ptr<CQdrDbEntity> {
       return std::make_unique<CQdrDbCobweb>(CQdrGePoint2d(n[0], n[1]), n[2], n[3],
                                             static_cast<int>(n[4]), qdr::toRadians(n[5]));
     }},
    {"spiral", 7,
     [](const Numbers& n) -> std::unique_ptr<CQdrDbEntity> {
       return std::make_unique<CQdrDbSpiral>(static_cast<int>(n[0]), CQdrGePoint2d(n[1], n[2]),
                                             n[3], n[4], n[5], qdr::toRadians(n[6]), 1.0);
     }},
    {"rect", 4,
     [](const Numbers& n) -> std::unique_ptr<CQdrDbEntity> {
       return std::make_unique<CQdrDbRect>(CQdrGePoint2d(n[0], n[1]), CQdrGePoint2d(n[2], n[3]));
     }},
    {"point", 3,
     [](const Numbers& n) -> std::unique_ptr<CQdrDbEntity> {
       auto point = std::make_unique<CQdrDbPoint>(CQdrGePoint2d(n[0], n[1]));
       point->SetSize(n[2]);
       return point;
     }},
};

// From x, y and bulge of each vertex. A bulge given for the closing segment counts.
std::unique_ptr<CQdrDbEntity> polylineOf(const Numbers& n, bool closed) {
  auto polyline = std::make_unique<CQdrDbPolyline>();
  for (std::size_t i = 0; i + 2 < n.size(); i += 3)
    polyline->AppendVertex({n[i], n[i + 1]}, n[i + 2], -1.0, -1.0);
  polyline->SetClosed(closed);
  polyline->SetBulgeAt(polyline->NumVerts() - 1, n.back());
  return polyline;
}

// From the fit parameter, then x and y of each control vertex.
std::unique_ptr<CQdrDbEntity> splineOf(const Numbers& n) {
  auto spline = std::make_unique<CQdrDbSpline>(n[0]);
  for (std::size_t i = 1; i + 1 < n.size(); i += 2)
    spline->AppendCtrlVertex({n[i], n[i + 1]});
  return spline;
}

// From x, y and option of each control vertex.
std::unique_ptr<CQdrDbEntity> csplineOf(const Numbers& n) {
  auto spline = std::make_unique<CQdrDbCSpline>();
  for (std::size_t i = 0; i + 2 < n.size(); i += 3)
    spline->AppendCtrlVertex({n[i], n[i + 1]}, static_cast<unsigned char>(n[i + 2]));
  return spline;
}

std::unique_ptr<CQdrDbEntity> built(std::string_view text) {
  std::istringstream words{std::string(text)};
  std::string keyword;
  words >> keyword;
  Numbers numbers;
  for (double number; words >> number;)
    numbers.push_back(number);
  if (!numbers.empty() && numbers.size() % 3 == 0) {
    if (keyword == "polyline") return polylineOf(numbers, false);
    if (keyword == "loop") return polylineOf(numbers, true);
  }
  if (keyword == "spline" && numbers.size() % 2 == 1) return splineOf(numbers);
  if (keyword == "cspline" && numbers.size() % 3 == 0) return csplineOf(numbers);
  for (const Builder& builder : kBuilders)
    if (builder.keyword == keyword && builder.count == numbers.size())
      return builder.build(numbers);
  return nullptr;
}

}  // namespace

namespace qdr::test {

std::string bytesOf(CQdrDbObject& object) {
  MemoryFile file;
  object.database()->m_pFile = &file;
  object.save();
  object.database()->m_pFile = nullptr;
  file.Close();
  return file.bytes();
}

void readFrom(CQdrDbObject& object, const std::string& bytes) {
  MemoryFile file(bytes);
  object.database()->m_pFile = &file;
  object.read();
  object.database()->m_pFile = nullptr;
}

std::unique_ptr<CQdrDbEntity> entityFromText(CQdrDbDatabase& database, std::string_view text) {
  std::unique_ptr<CQdrDbEntity> original = built(text);
  if (!original) {
    ADD_FAILURE() << "no entity: " << text;
    return nullptr;
  }
  original->setDatabase(&database);
  original->SetEntProperty();
  const EntityClass* row = entityClass(original->classType());
  if (!row->make) return original;
  std::unique_ptr<CQdrDbEntity> loaded(row->make(&database));
  readFrom(*loaded, bytesOf(*original));
  return loaded;
}

CQdrDbEntity* addFromText(CQdrDbDatabase& database, std::string_view text) {
  CQdrDbEntity* entity = entityFromText(database, text).release();
  CQdrDbObjectId id;
  database.addEntity(entity, id);
  return entity;
}

}  // namespace qdr::test
