#pragma once

#include <set>

#include "database/id_set.h"
#include "database/table_record.h"
#include "geometry/point2d.h"
#include "interaction/display/entity_index.h"
#include "platform/export.h"
#include "platform/points.h"

class CDC;
class CQdrDbEntSetIterator;
class CQdrGeVector2d;
class CView;

/// A view onto a block: its window on the world, the mapping to the device, and the entities shown.
///
/// Three spaces meet here. World: doubles in drawing units, y upward. Logical: integers, world
/// times _dDispScale; all drawing goes to the device context in them. Device: client pixels, y
/// downward. Named as its block; owns none of the entities, neither view nor device context.
class QDR_API CQdrDbDisplayTableRecord : public CQdrDbTableRecord {
 public:
  /// The window is that of the drawing's limits; scales are 0 until MakeUpDisplayWindow.
  explicit CQdrDbDisplayTableRecord(CQdrDbDatabase* database);

  /// Sets the window in whole world units, truncated. Only MakeUpDisplayWindow of a print looks at
  /// it: what a screen shows is logicalWindow.
  void SetCurDispWin(const CQdrGePoint2d& min, const CQdrGePoint2d& max);

  void setView(CView* view, CDC* dc);

  /// False without a view.
  bool getView(CView*& view, CDC*& dc) const;
  CView* getView() const { return m_view; }
  CDC* GetCurrentDC(CView*& view, CDC*& dc) const;
  CDC* getDC() const { return m_dc; }

  // The entities shown.

  void setEntityToMem(const std::set<CQdrDbObjectId>& ids);
  void addEntity(const CQdrDbObjectId& id);
  void removeEntity(const CQdrDbObjectId& id);
  void ClearDisplayedIdSet();
  /// An entity shown has other geometry or looks than before.
  void entityChanged(const CQdrDbObjectId& id) { m_index.changed(id); }
  std::set<CQdrDbObjectId>& getDisplayedIdSet() { return m_displayedIds; }
  /// An iterator for the caller to delete.
  bool newIterator(CQdrDbEntSetIterator*& iterator, bool atStart = true);

  // Selection. Candidates are the entities shown that are visible; of several the oldest is found
  // first, and sets are in the order of creation.

  /// All candidates, wherever they stand; true when there is one. The last flag has no effect.
  bool selectEntity(const CQdrGePoint2d& min, const CQdrGePoint2d& max,
                    std::set<CQdrDbObjectId>& ids, bool = false);
  /// The first candidate within half the pick box of a point.
  bool selectEntity(const CQdrGePoint2d& point, CQdrDbObjectId& id);
  bool selectEntity(CPoint device, CQdrDbObjectId& id);
  /// The same, with the point in the world.
  bool selectEntity(CPoint device, CQdrDbObjectId& id, CQdrGePoint2d& worldPoint);
  /// Candidates that lie inside a rectangle, and those that lie inside or cross it.
  bool selectEntityByWin(const CQdrGePoint2d& min, const CQdrGePoint2d& max,
                         std::set<CQdrDbObjectId>& ids);
  bool selectEntityByCross(const CQdrGePoint2d& min, const CQdrGePoint2d& max,
                           std::set<CQdrDbObjectId>& ids, bool = false);
  /// Side of the pick box in world units; 0 before MakeUpDisplayWindow.
  double pickBoxSide() const;

  // The window and its mapping.

  void setLimits(const CQdrGePoint2d& min, const CQdrGePoint2d& max);
  /// The visible rectangle; the two points may stand in either order of y.
  void getLimits(CQdrGePoint2d& min, CQdrGePoint2d& max) const;
  /// Stores the box of all grips in the drawing's extents. It always holds (0, 0) to (29, 21).
  void getExtend();
  /// Client pixel to world.
  CQdrGePoint2d GetLogicalPoint(CPoint device) const;
  /// World to the nearest client pixel; (0, 0) before MakeUpDisplayWindow.
  CPoint GetDecivePoint(const CQdrGePoint2d& world) const;
  /// Brings window, view and device context into step, in the proportions of the client rectangle;
  /// a printing context gets the page instead. Nothing happens with an empty client rectangle or
  /// window.
  void MakeUpDisplayWindow(CDC* dc);
  /// Part of MakeUpDisplayWindow: fits the window to the client rectangle about its centre.
  void InitViewCoordinates();

  // Drawing.

  /// Paints all: on a screen through a buffer, with the grips; on a printer directly. On a screen
  /// without a view nothing happens.
  void Draw(CDC* dc);
  void DrawEntities(CDC* dc);
  void DrawGrid(CDC* dc);
  void DrawEntity(CQdrDbObject*& object);
  /// Draws all into a copy of the window that reaches the device at once.
  void HighlightDraw(CDC* dc);

  // Zoom and pan; all but ZoomExt, ZoomAll and Onsize redraw. The window before the last zoom is
  // kept, one level of it. A zoom past one world unit or 1e7 of them is refused.

  /// Logical rectangle. One of a few pixels in both directions is refused as a slip of the hand.
  void ZoomWindow(CDC* dc, CRect rect);
  /// Scales about a device point; below 1 zooms in. 0 or less is refused; the flag has no effect.
  void ScaleUpDown(CDC* dc, CPoint focus, double scale, bool = false);
  void ZoomIn(CDC* dc);
  void ZoomOut(CDC* dc);
  void ZoomPrev(CDC* dc);
  /// These only set the window.
  void ZoomExt();
  void ZoomAll();
  /// Widens the window by what a client rectangle of this size has grown.
  void Onsize(int cx, int cy);
  /// Scrolls by the way from the centre to a device point.
  void MoveWindow(CDC* dc, const CPoint& point);
  /// Logical offsets; the vector form goes by hundredths of the window in one direction.
  void PanWindow(CDC* dc, int dx, int dy);
  void PanWindow(CDC* dc, const CQdrGeVector2d& steps);
  /// The fast pan of a drag: proportions stay as they are.
  void RealPanWindow(CDC* dc, int dx, int dy);

  const CRect& clientRect() const { return m_clientRect; }
  /// The window in logical units; top is the smaller y.
  const CRect& logicalWindow() const { return m_logicalWindow; }
  /// The window in whole world units.
  const CRect& displayWindow() const { return m_displayWindow; }
  /// Logical units per pixel; 0 before MakeUpDisplayWindow.
  double scaleX() const { return m_scaleX; }
  double scaleY() const { return m_scaleY; }
  CPoint cursorPoint() const { return m_cursorPoint; }
  bool showLimitsOnly() const { return m_showLimitsOnly; }
  /// With it only what crosses the visible rectangle is drawn, and selected afterwards.
  void setShowLimitsOnly(bool only) { m_showLimitsOnly = only; }

 private:
  void fitWindow(CRect& window) const;
  void keepScale(CRect& window);
  void publishWindow();
  void mapTo(CDC* dc) const;
  void setLogicalWindow(const QdrXY& min, const QdrXY& max);
  void offsetWindow(double dx, double dy);
  void refreshDisplayedIds();
  template <class Paint>
  void drawShown(bool all, const Paint& paint);
  template <class Visit>
  void forEachShown(const CQdrGePoint2d& corner1, const CQdrGePoint2d& corner2, Visit&& visit);
  void drawGridLines(CDC* dc, LONG step) const;
  void drawGridAxes(CDC* dc) const;

  bool m_showLimitsOnly = false;
  bool m_printing = false;
  CPoint m_cursorPoint;
  CRect m_clientRect;
  CRect m_logicalWindow;
  CRect m_prevWindow;
  CRect m_displayWindow;
  CRect m_screenWindow;  // the logical window while a print has taken its place
  bool m_hasScreenWindow = false;
  double m_aspect = 0.0;
  double m_scaleX = 0.0;
  double m_scaleY = 0.0;
  CView* m_view = nullptr;
  CDC* m_dc = nullptr;
  qdr::IdSet m_displayedIds;
  qdr::EntityIndex m_index;
  CQdrGePoint2d m_limitMin;
  CQdrGePoint2d m_limitMax;
};
