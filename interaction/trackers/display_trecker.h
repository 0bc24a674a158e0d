#pragma once

#include "platform/export.h"
#include "platform/gdi_objects.h"
#include "platform/input.h"
#include "platform/points.h"

class CDC;
class CQdrDbDatabase;
class CWnd;

/// The rubber shape of the view commands: pan ('P'), live pan ('R') and zoom window ('W').
class QDR_API CQdrDbDisplayTrecker {
 public:
  CQdrDbDisplayTrecker(CWnd* window, CQdrDbDatabase* database, wchar_t mode);

  void SetStartPoint(CPoint device);
  void SetValidRect(const CRect& rect) { m_validRect = rect; }
  bool IsValidPos(const CPoint& device) const;
  /// Runs from a first click to the second; false when it was ended without one.
  bool Track(CWnd* window, CPoint device);
  void DrawRect(CPoint corner1, CPoint corner2);
  void DrawRubber();
  bool TrackHandle(CWnd* window, CPoint device);
  /// Applies the shape to the view. Always true.
  bool ChangeDisplay();

 private:
  void onMouse(CPoint device);
  void eraseRubber();

  CWnd* m_window;
  CDC* m_dc;
  CQdrDbDatabase* m_db;
  CPoint m_current;  ///< device
  CPoint m_last;     ///< device
  CPen m_pen;
  CRect m_validRect;
  wchar_t m_mode;
  bool m_rubberShown = false;
  CPoint m_rubberStart;  ///< logical
  CPoint m_rubberEnd;
};
