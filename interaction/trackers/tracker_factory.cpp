// Which tracker handles which class of entity.

#include <algorithm>

#include "entities/entity.h"
#include "interaction/command_handler.h"
#include "interaction/trackers/arc_tracker.h"
#include "interaction/trackers/box_tracker.h"
#include "interaction/trackers/circle_tracker.h"
#include "interaction/trackers/cobweb_tracker.h"
#include "interaction/trackers/cspline_tracker.h"
#include "interaction/trackers/ellipse_arc_tracker.h"
#include "interaction/trackers/ellipse_tracker.h"
#include "interaction/trackers/line_tracker.h"
#include "interaction/trackers/polyline_tracker.h"
#include "interaction/trackers/rect_tracker.h"
#include "interaction/trackers/spiral_tracker.h"
#include "interaction/trackers/spline_tracker.h"

namespace {

struct TrackerRow {
  QdrDb::ClassType type;
  CQdrDbEntityTracker* (*make)(CWnd*, CQdrDbEntity*, QdrDb::TransFormOption, bool);
};

template <class Tracker>
CQdrDbEntityTracker* makeTracker(CWnd* window, CQdrDbEntity* entity, QdrDb::TransFormOption option,
                                 bool create) {
  return new Tracker(window, entity, option, create);
}

// A class without a row, the point among them, has no tracker.
constexpr TrackerRow kTrackers[] = {
    {QdrDb::eClassArc, makeTracker<CQdrArcTracker>},
    {QdrDb::eClassCircle, makeTracker<CQdrCircleTracker>},
    {QdrDb::eClassEllipse, makeTracker<CQdrEllipseTracker>},
    {QdrDb::eClassEllipseArc, makeTracker<CQdrEllipseArcTracker>},
    {QdrDb::eClassLine, makeTracker<CQdrLineTracker>},
    {QdrDb::eClassPolyline, makeTracker<CQdrPolylineTracker>},
    {QdrDb::eClassSpline, makeTracker<CQdrSplineTracker>},
    {QdrDb::eClassCSpline, makeTracker<CQdrCSplineTracker>},
    {QdrDb::eClassSpiral, makeTracker<CQdrSpiralTracker>},
    {QdrDb::eClassCobweb, makeTracker<CQdrDbCobwebTracker>},
    {QdrDb::eClassRect, makeTracker<CQdrRectTracker>},
    {QdrDb::eClassBox, makeTracker<CQdrBoxTracker>},
};

}  // namespace

CQdrDbEntityTracker* CQdrCommandHandler::CreateTracker(CWnd* window, CQdrDbEntity* entity,
                                                       QdrDb::TransFormOption option, bool create) {
  const QdrDb::ClassType type = classTypeOf(entity);
  const auto* row = std::find_if(std::begin(kTrackers), std::end(kTrackers),
                                 [type](const TrackerRow& each) { return each.type == type; });
  return row == std::end(kTrackers) ? nullptr : row->make(window, entity, option, create);
}

void CQdrCommandHandler::readClickModifier() {
  constexpr int kKeys[] = {VK_CONTROL, VK_SHIFT, VK_MENU};
  const auto* held = std::find_if(std::begin(kKeys), std::end(kKeys),
                                  [](int key) { return GetKeyState(key) < 0; });
  m_clickModifier = held == std::end(kKeys) ? 0 : static_cast<int>(held - std::begin(kKeys)) + 1;
}
