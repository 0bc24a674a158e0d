#pragma once

#include <set>

#include "database/id_set.h"
#include "database/table_record.h"
#include "geometry/point2d.h"
#include "platform/export.h"
#include "platform/points.h"

class CDC;
class CQdrDbEntSetIterator;
class CView;

/// A view onto a block: its window on the world, the mapping to the device, and the entities shown.
/// Named as its block; owns none of the entities, neither view nor device context.
class QDR_API CQdrDbDisplayTableRecord : public CQdrDbTableRecord {
 public:
  /// The window is that of the drawing's limits; scales are 0 until MakeUpDisplayWindow.
  explicit CQdrDbDisplayTableRecord(CQdrDbDatabase* database);

  /// Sets the window in whole world units, truncated.
  void SetCurDispWin(const CQdrGePoint2d& min, const CQdrGePoint2d& max);

  void setView(CView* view, CDC* dc);

  /// False without a view.
  bool getView(CView*& view, CDC*& dc) const;
  CView* getView() const { return m_view; }
  CDC* GetCurrentDC(CView*& view, CDC*& dc) const;
  CDC* getDC() const { return m_dc; }

  /// The visible window in logical units; its top is the smaller y.
  const CRect& getLogicalWindow() const { return m_logicalWindow; }

  void setEntityToMem(const std::set<CQdrDbObjectId>& ids);
  void addEntity(const CQdrDbObjectId& id);
  void removeEntity(const CQdrDbObjectId& id);
  void ClearDisplayedIdSet();
  std::set<CQdrDbObjectId>& getDisplayedIdSet() { return m_displayedIds; }

  /// An iterator for the caller to delete.
  bool newIterator(CQdrDbEntSetIterator*& iterator, bool atStart = true);

  /// Logical units per pixel in x; 0 before the first mapping.
  double pixelSize() const { return m_scaleX; }

  void setLimits(const CQdrGePoint2d& min, const CQdrGePoint2d& max);
  void getLimits(CQdrGePoint2d& min, CQdrGePoint2d& max) const;

 private:
  bool m_showLimitsOnly = false;
  bool m_printing = false;
  CPoint m_cursorPoint;
  CRect m_clientRect;
  CRect m_logicalWindow;
  CRect m_prevWindow;
  CRect m_displayWindow;
  double m_aspect = 0.0;
  double m_scaleX = 0.0;
  double m_scaleY = 0.0;
  CView* m_view = nullptr;
  CDC* m_dc = nullptr;
  qdr::IdSet m_displayedIds;
  CQdrGePoint2d m_limitMin;
  CQdrGePoint2d m_limitMax;
};
