#pragma once

#include "platform/device_context.h"
#include "platform/export.h"
#include "platform/gdi_objects.h"
#include "platform/points.h"

class CWnd;

/// A picture in memory of the size of a window's client area, in the mapping of the target, filled
/// with the target's background colour. One that could not be made is not valid: what is drawn into
/// it is lost.
class QDR_API CQdrBuffDC {
 public:
  CQdrBuffDC(CDC& target, CWnd* window);
  ~CQdrBuffDC();
  CQdrBuffDC(const CQdrBuffDC&) = delete;
  CQdrBuffDC& operator=(const CQdrBuffDC&) = delete;

  /// Where to draw.
  CDC* GetDC() { return &m_memory; }
  /// Gives `dc` the mapping of the buffer and copies the whole picture to it.
  bool QdrBitBlt(CDC* dc, unsigned long rop);
  /// Fills the picture with the background colour again.
  void ClearRect();
  /// Shifts the part that is filled and copied.
  void scroll(CPoint position);
  CWnd* GetWindow() const { return m_window; }
  bool isValid() const { return m_valid; }

 private:
  CWnd* m_window;
  CDC& m_target;
  bool m_valid = false;
  CDC m_memory;
  CBitmap m_bitmap;
  CBitmap* m_formerBitmap = nullptr;
  CRect m_clientRect;
  CRect m_logicalRect;
};

/// The same over a view, whose scrolled position shifts the picture; copied to its target when it
/// is destroyed.
class QDR_API CQdrMemDC {
 public:
  CQdrMemDC(CDC& target, CWnd* window);
  ~CQdrMemDC();
  CQdrMemDC(const CQdrMemDC&) = delete;
  CQdrMemDC& operator=(const CQdrMemDC&) = delete;

  CDC* GetDC() { return m_buffer.GetDC(); }

 private:
  CDC& m_target;
  CQdrBuffDC m_buffer;
};
