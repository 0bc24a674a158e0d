#pragma once

#include <cstdint>
#include <set>
#include <vector>

#include "platform/export.h"
#include "platform/gdi_objects.h"
#include "platform/input.h"
#include "platform/points.h"
#include "platform/wide_string.h"

class CDC;
class CQdrDbDatabase;
class CQdrDbDisplayTableRecord;
class CQdrDbEntity;
class CQdrGePoint2d;
class CWnd;

/// Cursor shown while entities are selected by windows; may be null.
extern QDR_API HCURSOR _cursorSelect;

/// Lets the user choose entities by one pick, a window, a crossing window, a fence or a polygon.
///
/// Mode Space picks, or starts a window on a miss; drawn to the left that window is a crossing one.
/// W, C, F and P are the other modes, and the same keys change it. Ortho and grid snap of the
/// drawing are off while the tracker lives. Rubber shapes are logical.
class QDR_API CQdrDbSelectionTracker {
 public:
  CQdrDbSelectionTracker(CWnd* window, CQdrDbDatabase* database, wchar_t mode);
  ~CQdrDbSelectionTracker();
  CQdrDbSelectionTracker(const CQdrDbSelectionTracker&) = delete;
  CQdrDbSelectionTracker& operator=(const CQdrDbSelectionTracker&) = delete;

  /// Begins a shape at a world point; `start` says that it follows the mouse from here on.
  void SetStartPoint(const CQdrGePoint2d& worldPoint, bool start);
  /// Begins a shape at a device point.
  void SetStartPoint(CPoint device);
  void SetValidRect(const CRect& rect) { m_validRect = rect; }
  bool IsValidPos(const CPoint& device) const;
  /// One selection; null when nothing was chosen. The set is the tracker's, until the next call.
  std::set<CQdrDbEntity*>* Track(CWnd* window, CPoint device);
  void DrawRect(CPoint corner1, CPoint corner2);
  void DrawRubber();
  /// Answers how many were chosen.
  int TrackHandle(CWnd* window, CPoint device);
  /// True when the last selection was ended by the program, not by the user.
  bool wasCancelled() const { return m_cancelled; }
  /// Chooses by a pick at the end point, or by the shape of the mode.
  int SelectEntity(bool single);

 private:
  void handleMessage(const MSG& message);
  void onMouse(CPoint device);
  void onClick(CPoint device);
  void onCharacter(wchar_t character);
  void onKey(const MSG& message);
  void eraseRubber();
  void selectByRectangle(CQdrDbDisplayTableRecord& view, bool crossing);
  void selectByFence(CQdrDbDisplayTableRecord& view);
  void selectByPolygon(CQdrDbDisplayTableRecord& view);

  CPen m_solidPen;
  CPen m_dotPen;
  CPen* m_activePen;
  CPoint m_current;
  bool m_started = false;
  CRect m_validRect;
  CPoint m_rubberStart;
  CPoint m_rubberEnd;
  CString m_keywords = L"WCFP";
  wchar_t m_mode;
  bool m_rubberShown = false;
  bool m_done = false;
  bool m_cancelled = false;
  CQdrDbDatabase* m_db;
  CDC* m_dc;
  CWnd* m_window;
  std::set<CQdrDbEntity*> m_selected;
  std::vector<CPoint> m_polygon;
  std::uint8_t m_savedOrtho = 0;
  std::uint8_t m_savedSnap = 0;
};
