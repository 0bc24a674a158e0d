// Commands of the grip menu on the control vertices of splines.

#include "entities/cspline.h"
#include "entities/spline.h"
#include "interaction/dlg_get_value.h"
#include "interaction/trackers/cspline_tracker.h"
#include "interaction/trackers/grip_menu.h"
#include "interaction/trackers/spline_tracker.h"
#include "platform/window.h"

namespace {

constexpr int kLeastVertices = 2;
constexpr const wchar_t* kFitCaption = L"Fit Parameter:";
constexpr double kLargestFit = 0.99;  // stands for 1, which leaves nothing of the sides

tagUndoEditEntity vertexStep(qdr::UndoCode operation, int index) {
  tagUndoEditEntity step = qdr::undoStep(operation, {});
  step.index = index;
  return step;
}

unsigned char optionOf(const CQdrDbSpline&, int) {
  return 0;
}

unsigned char optionOf(const CQdrDbCSpline& spline, int index) {
  return spline.GetCtrlOption(index);
}

// The step that brings a vertex back.
template <class Spline>
tagUndoEditEntity removalStep(const Spline& spline, int index) {
  tagUndoEditEntity step = vertexStep(qdr::kUndoVertexRemoved, index);
  spline.GetCtrlVertexAt(index, step.point);
  step.value = optionOf(spline, index);
  return step;
}

}  // namespace

void CQdrSplineTracker::runOwnCommand(CWnd* window, int handle, unsigned command) {
  auto& spline = static_cast<CQdrDbSpline&>(*m_entity);
  if (command == qdr::kGripChangeParam) {
    changeFit(spline, window);
  } else if (!editVertices(spline, handle, command)) {
    ShapeTracker::runOwnCommand(window, handle, command);
    return;
  }
  if (m_entity) m_entity->OnCurveChanged();
}

void CQdrCSplineTracker::runOwnCommand(CWnd* window, int handle, unsigned command) {
  auto& spline = static_cast<CQdrDbCSpline&>(*m_entity);
  if (!editVertices(spline, handle, command)) {
    ShapeTracker::runOwnCommand(window, handle, command);
    return;
  }
  if (m_entity) m_entity->OnCurveChanged();
}

void CQdrSplineTracker::changeFit(CQdrDbSpline& spline, CWnd* window) {
  CString present;
  present.Format(L"%.3f", spline.GetFitParam());
  CDlgGetValue dialog(window, kFitCaption, present);
  if (dialog.DoModal() != IDOK) return;
  const double typed = _wtof(dialog.value());
  if (!(typed > 0.0)) return;
  recordStep(qdr::undoStep(qdr::kUndoBulge, QdrXY(spline.GetFitParam(), 0.0)));
  editEntity([&] { spline.SetFitParam(typed == 1.0 ? kLargestFit : typed); });
}

template <class Spline>
bool qdr::ShapeTracker::editVertices(Spline& spline, int handle, unsigned command) {
  CQdrGePoint2d point;
  switch (command) {
    case kGripReverse:
      recordStep(undoStep(kUndoReversed, {}));
      editEntity([&] { spline.Reverse(); });
      return true;
    case kGripInsertVertex:
      if (handle < 0 || !askPoint(handle, point) || handle >= spline.NumCtrlVerts()) return true;
      recordStep(vertexStep(kUndoVertexAdded, handle + 1));
      editEntity([&] { spline.AddCtrlVertexAt(handle + 1, point); });
      return true;
    case kGripDeleteVertex:
      if (handle < 0 || spline.NumCtrlVerts() <= kLeastVertices) return true;
      recordStep(removalStep(spline, handle));
      editEntity([&] { spline.RemoveCtrlVertexAt(handle); });
      return true;
    default:
      return false;
  }
}
