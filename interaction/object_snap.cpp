// Snaps of a pick to entities and to the grid, and the mark that shows what was caught.

#include <cmath>
#include <utility>
#include <vector>

#include "database/database.h"
#include "entities/arc.h"
#include "entities/circle.h"
#include "entities/curve.h"
#include "entities/display_units.h"
#include "entities/entity_cast.h"
#include "entities/point.h"
#include "geometry/tolerance.h"
#include "interaction/command_handler.h"
#include "interaction/display/display_table_record.h"
#include "interaction/grid_rounding.h"

namespace {

// Kinds of mark by what was caught, drawn as point styles.
enum BlipKind : int {
  kBlipSame = 0,
  kBlipCenter = 1,
  kBlipIntersection = 3,
  kBlipGrip = 6,
  kBlipNearest = 7,
  kBlipGridNode = 8
};

constexpr int kBlipColor = 4;
constexpr std::uint8_t kBlipSize = 10;
constexpr double kAperturePixels = 10.0;  // half the side of the square about the cursor
constexpr double kSnapTolerance = 0.001;

// What a search for a snap has found.
struct Snap {
  CQdrGePoint2d point;
  int kind = kBlipSame;
  bool found() const { return kind != kBlipSame; }
  void set(const CQdrGePoint2d& at, int what) {
    point = at;
    kind = what;
  }
};

double nearestNode(double value, double step) {
  const double node = std::trunc(value / step) * step;
  return value - node > step / 2.0 ? node + step : node;
}

// The searches over one drawing and view for one position of the mouse.
class SnapSearch {
 public:
  SnapSearch(CQdrDbDatabase& database, CQdrDbDisplayTableRecord& view, CQdrGePoint2d& point)
      : m_vars(database.m_vars),
        m_view(view),
        m_point(point),
        m_aperture(view.scaleX() / _dDispScale * kAperturePixels) {}

  // The first two overwrite each other, the others only look when nothing has been found.
  Snap run() {
    if (m_vars.gridVisible != 0 && m_vars.snapGridPoint != 0) gridNode();
    if (m_vars.snapGrip != 0) grip();
    if (m_vars.snapIntersection != 0 && !m_snap.found()) intersection();
    if (m_vars.snapCenter != 0 && !m_snap.found()) center();
    if (m_vars.snapNearest != 0 && !m_snap.found()) nearest();
    return m_snap;
  }

 private:
  void gridNode() {
    const double step = m_vars.gridSpacing / (m_vars.gridDivisions + 1);
    if (!qdr::isGridStep(step)) return;
    CQdrGePoint2d node;
    node.set(nearestNode(m_point.x, step), nearestNode(m_point.y, step));
    if (std::abs(node.x - m_point.x) > m_aperture) return;
    if (std::abs(node.y - m_point.y) > m_aperture) return;
    m_snap.set(node, kBlipGridNode);
  }

  void grip() {
    CQdrDbEntity* const entity = picked();
    CQdrGePoint2d found;
    if (entity && entity->GetGripNumber(m_point, m_view.scaleX(), found) >= 0) {
      m_snap.set(found, kBlipGrip);
    }
  }

  // With two entities or more in the aperture the first two are crossed; a single polyline, spline
  // or spiral is crossed with itself.
  void intersection() {
    CQdrGePoint2d low = m_point;
    CQdrGePoint2d high = m_point;
    low.set(m_point.x - m_aperture, m_point.y - m_aperture);
    high.set(m_point.x + m_aperture, m_point.y + m_aperture);
    std::set<CQdrDbObjectId> ids;
    m_view.selectEntityByCross(low, high, ids, false);
    if (ids.empty()) return;
    CQdrDbEntity* const first = qdr::asEntity(*ids.begin());
    CQdrDbEntity* const second = ids.size() > 1 ? qdr::asEntity(*std::next(ids.begin())) : first;
    if (ids.size() == 1 && !crossesItself(first->classType())) return;
    int count = 0;
    std::vector<CQdrGePoint2d> points;
    if (!first->intersectWith(*second, count, points, 0, kSnapTolerance) || points.empty()) return;
    m_snap.set(nearestOf(points), kBlipIntersection);
  }

  static bool crossesItself(QdrDb::ClassType type) {
    return type == QdrDb::eClassPolyline || type == QdrDb::eClassSpline ||
           type == QdrDb::eClassSpiral;
  }

  CQdrGePoint2d nearestOf(const std::vector<CQdrGePoint2d>& points) const {
    CQdrGePoint2d best = points.front();
    for (const CQdrGePoint2d& candidate : points) {
      if (candidate.distanceTo(m_point) < best.distanceTo(m_point)) best = candidate;
    }
    return best;
  }

  void center() {
    CQdrDbEntity* const entity = picked();
    if (!entity) return;
    if (const auto* arc = qdr::entityAs<CQdrDbArc>(entity)) m_snap.set(arc->Center(), kBlipCenter);
    if (const auto* circle = qdr::entityAs<CQdrDbCircle>(entity)) {
      m_snap.set(circle->Center(), kBlipCenter);
    }
  }

  void nearest() {
    CQdrDbEntity* const entity = picked();
    if (!entity || !entity->IsCurveEntity()) return;
    CQdrGeVector2d fromFoot;
    if (!static_cast<CQdrDbCurve*>(entity)->PerpVecFromPoint(m_point, fromFoot, kSnapTolerance))
      return;
    // The vector runs from the foot to the point.
    m_snap.set(m_point - fromFoot, kBlipNearest);
  }

  CQdrDbEntity* picked() {
    CQdrDbObjectId id;
    return m_view.selectEntity(m_point, id) ? qdr::asEntity(id) : nullptr;
  }

  const QdrDbDrawingVars_tag& m_vars;
  CQdrDbDisplayTableRecord& m_view;
  CQdrGePoint2d& m_point;
  double m_aperture;
  Snap m_snap;
};

}  // namespace

bool CQdrCommandHandler::CheckSnapChar(wchar_t character) {
  if (!m_database) return false;
  QdrDbDrawingVars_tag& vars = m_database->m_vars;
  switch (character) {
    case L'I':
      vars.snapIntersection = 1;
      return true;
    case L'C':
      vars.snapCenter = 1;
      return true;
    case L'N':
      vars.snapNearest = 1;
      return true;
    default:
      return false;
  }
}

void CQdrCommandHandler::clearOneShotSnaps() {
  if (!m_database) return;
  m_database->m_vars.snapIntersection = 0;
  m_database->m_vars.snapCenter = 0;
  m_database->m_vars.snapNearest = 0;
}

bool CQdrCommandHandler::CheckSnapPoint(CQdrGePoint2d& previous, CQdrGePoint2d& point,
                                        CQdrGePoint2d& out) {
  CheckBlipDraw(previous);
  CQdrDbDisplayTableRecord* const view =
      m_database ? m_database->m_displayTable.getCurrentRecord() : nullptr;
  if (!view) return false;
  const Snap snap = SnapSearch(*m_database, *view, point).run();
  if (!snap.found()) return false;
  previous = snap.point;
  out = snap.point;
  DrawBlip(out, m_database->screenDC(), snap.kind);
  m_blipPoint = out;
  m_blipShown = true;
  return true;
}

void CQdrCommandHandler::CheckBlipDraw(CQdrGePoint2d& point) {
  if (!m_blipShown || !m_database) return;
  DrawBlip(point, m_database->screenDC(), kBlipSame);
  m_blipShown = false;
}

void CQdrCommandHandler::DrawBlip(CQdrGePoint2d& point, CDC* dc, int kind) {
  if (kind != kBlipSame) m_blipKind = kind;
  if (!dc || !m_database) return;
  // Points take their style from the settings of the drawing, which are borrowed for the mark.
  QdrDbDrawingVars_tag& vars = m_database->m_vars;
  const std::uint8_t mode = std::exchange(vars.pointMode, static_cast<std::uint8_t>(m_blipKind));
  const std::uint8_t size = std::exchange(vars.pointSize, kBlipSize);
  CQdrDbPoint mark(m_database);
  mark.SetPosition(point);
  mark.setColor(kBlipColor);
  mark.Draw(dc);
  vars.pointMode = mode;
  vars.pointSize = size;
}
