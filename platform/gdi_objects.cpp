#include "platform/gdi_objects.h"

#include <algorithm>

#include "platform/selection_slot.h"

CGdiObject::~CGdiObject() {
  while (qdr::SelectionSlot* slot = m_selections) {
    slot->unlink();
    slot->m_object = slot->m_stock;
    slot->m_changed = true;
  }
}

void CGdiObject::contentChanged() {
  for (qdr::SelectionSlot* slot = m_selections; slot; slot = slot->m_next)
    slot->m_changed = true;
}

// Pens

namespace {

constexpr DWORD kMaxDashes = 1024;

}  // namespace

CPen::CPen() : CGdiObject(OBJ_PEN) {}

CPen::CPen(int style, int width, COLORREF color)
    : CGdiObject(OBJ_PEN), m_style(style), m_width(width), m_color(color) {}

CPen::CPen(int style, int width, const LOGBRUSH* brush, int count, const DWORD* lengths)
    : CGdiObject(OBJ_PEN) {
  CreatePen(style, width, brush, count, lengths);
}

bool CPen::CreatePen(int style, int width, COLORREF color) {
  m_style = style;
  m_width = width;
  m_color = color;
  m_dashes.clear();
  contentChanged();
  return true;
}

bool CPen::CreatePen(int style, int width, const LOGBRUSH* brush, int count, const DWORD* lengths) {
  m_style = style;
  m_width = width;
  m_color = brush ? brush->lbColor : 0;
  if (brush && brush->lbStyle == BS_NULL) m_style = (style & ~PS_STYLE_MASK) | PS_NULL;
  m_dashes.clear();
  if (lengths && count > 0)
    m_dashes.assign(lengths, lengths + std::min(static_cast<DWORD>(count), kMaxDashes));
  contentChanged();
  return true;
}

bool CPen::CreatePenIndirect(const LOGPEN* pen) {
  if (!pen) return false;
  return CreatePen(static_cast<int>(pen->lopnStyle), pen->lopnWidth.x, pen->lopnColor);
}

bool CPen::ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD count,
                        const DWORD* lengths) {
  return CreatePen(static_cast<int>(style), static_cast<int>(width), brush,
                   static_cast<int>(std::min(count, kMaxDashes)), lengths);
}

int CPen::GetLogPen(LOGPEN* pen) const {
  if (!pen) return 0;
  pen->lopnStyle = static_cast<std::uint32_t>(m_style);
  pen->lopnWidth = {m_width, 0};
  pen->lopnColor = m_color;
  return sizeof(LOGPEN);
}

int CPen::GetExtLogPen(EXTLOGPEN* pen) const {
  if (!pen) return 0;
  pen->elpPenStyle = static_cast<DWORD>(m_style);
  pen->elpWidth = static_cast<DWORD>(m_width);
  pen->elpBrushStyle = BS_SOLID;
  pen->elpColor = m_color;
  pen->elpHatch = 0;
  pen->elpNumEntries = static_cast<DWORD>(m_dashes.size());
  pen->elpStyleEntry = m_dashes.empty() ? nullptr : m_dashes.data();
  return sizeof(EXTLOGPEN);
}

// Brushes and fonts

CBrush::CBrush() : CGdiObject(OBJ_BRUSH) {}

CBrush::CBrush(COLORREF color) : CGdiObject(OBJ_BRUSH) {
  m_data.lbColor = color;
}

bool CBrush::CreateSolidBrush(COLORREF color) {
  const LOGBRUSH solid{BS_SOLID, color, 0};
  return CreateBrushIndirect(&solid);
}

bool CBrush::CreateHatchBrush(int hatch, COLORREF color) {
  const LOGBRUSH hatched{BS_HATCHED, color, static_cast<std::uintptr_t>(hatch)};
  return CreateBrushIndirect(&hatched);
}

bool CBrush::CreateBrushIndirect(const LOGBRUSH* brush) {
  if (!brush || brush->lbStyle > BS_HATCHED) return false;
  if (brush->lbStyle == BS_HATCHED && brush->lbHatch > HS_DIAGCROSS) return false;
  m_data = *brush;
  contentChanged();
  return true;
}

int CBrush::GetLogBrush(LOGBRUSH* brush) const {
  if (!brush) return 0;
  *brush = m_data;
  return sizeof(LOGBRUSH);
}

CFont::CFont() : CGdiObject(OBJ_FONT) {}

bool CFont::CreateFontIndirectW(const LOGFONT* font) {
  if (!font) return false;
  m_data = *font;
  contentChanged();
  return true;
}

int CFont::GetLogFont(LOGFONT* font) const {
  if (!font) return 0;
  *font = m_data;
  return sizeof(LOGFONT);
}

// Regions and palettes

CRgn::CRgn() : CGdiObject(OBJ_REGION) {}

bool CRgn::CreateRectRgn(int left, int top, int right, int bottom) {
  SetRectRgn(left, top, right, bottom);
  return true;
}

void CRgn::SetRectRgn(int left, int top, int right, int bottom) {
  m_box = CRect(left, top, right, bottom);
  m_box.NormalizeRect();
}

CPalette::CPalette() : CGdiObject(OBJ_PAL) {}

// Stock objects

namespace {

constexpr int kStockFontHeight = 16;

struct StockObjects {
  CBrush whiteBrush{0xffffff};
  CBrush lightGrayBrush{0xc0c0c0};
  CBrush grayBrush{0x808080};
  CBrush darkGrayBrush{0x404040};
  CBrush blackBrush{0x000000};
  CBrush nullBrush;
  CPen whitePen{PS_SOLID, 1, 0xffffff};
  CPen blackPen{PS_SOLID, 1, 0x000000};
  CPen nullPen{PS_NULL, 1, 0x000000};
  CFont font;

  StockObjects() {
    const LOGBRUSH hollow{BS_HOLLOW, 0, 0};
    nullBrush.CreateBrushIndirect(&hollow);
    LOGFONT data;
    data.lfHeight = kStockFontHeight;
    font.CreateFontIndirectW(&data);
  }
};

}  // namespace

CGdiObject* GetStockObject(int index) {
  // Contexts of static duration may outlive any destructor order: the objects are never freed.
  static StockObjects& stock = *new StockObjects;
  CGdiObject* const table[] = {
      &stock.whiteBrush,    &stock.lightGrayBrush, &stock.grayBrush,
      &stock.darkGrayBrush, &stock.blackBrush,     &stock.nullBrush,
      &stock.whitePen,      &stock.blackPen,       &stock.nullPen,
  };
  if (index >= WHITE_BRUSH && index <= NULL_PEN) return table[index];
  if (index == SYSTEM_FONT || index == DEFAULT_GUI_FONT) return &stock.font;
  return nullptr;
}
