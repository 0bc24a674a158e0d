#include "platform/device_context.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/software_raster.h"

namespace {

constexpr int kLastRop2 = R2_WHITE;

// The bitmap of a memory context that has none selected: one pixel.
std::shared_ptr<qdr::PixelBuffer> onePixel() {
  return qdr::PixelBuffer::create(1, 1);
}

}  // namespace

CDC::CDC()
    : m_pen(GetStockObject(BLACK_PEN)),
      m_brush(GetStockObject(WHITE_BRUSH)),
      m_font(GetStockObject(SYSTEM_FONT)),
      m_bitmap(nullptr) {}

CDC::CDC(qdr::IDeviceSurface* surface) : CDC() {
  attachSurface(surface);
}

CDC::~CDC() = default;

void CDC::attachSurface(qdr::IDeviceSurface* surface) {
  DeleteDC();
  m_surface = surface;
}

bool CDC::CreateCompatibleDC(const CDC*) {
  std::shared_ptr<qdr::PixelBuffer> pixels = onePixel();
  if (!pixels) return false;
  m_bitmap.select(nullptr);
  m_memory = std::make_unique<qdr::SoftwareRaster>(std::move(pixels));
  m_surface = m_memory.get();
  return true;
}

bool CDC::DeleteDC() {
  const bool had = m_surface != nullptr;
  m_bitmap.select(nullptr);
  m_surface = nullptr;
  m_memory.reset();
  return had;
}

// Mapping

int CDC::SetMapMode(int mode) {
  const int old = m_mapMode;
  m_mapMode = mode;
  if (mode == MM_TEXT) {
    m_mapX.setExtents(1, 1);
    m_mapY.setExtents(1, 1);
    m_penStale = true;
  }
  return old;
}

CPoint CDC::GetWindowOrg() const {
  return {m_mapX.windowOrigin(), m_mapY.windowOrigin()};
}

CSize CDC::GetWindowExt() const {
  return {m_mapX.windowExtent(), m_mapY.windowExtent()};
}

CPoint CDC::GetViewportOrg() const {
  return {m_mapX.viewportOrigin(), m_mapY.viewportOrigin()};
}

CSize CDC::GetViewportExt() const {
  return {m_mapX.viewportExtent(), m_mapY.viewportExtent()};
}

CPoint CDC::SetWindowOrg(int x, int y) {
  const CPoint old = GetWindowOrg();
  m_mapX.setOrigins(x, m_mapX.viewportOrigin());
  m_mapY.setOrigins(y, m_mapY.viewportOrigin());
  m_penStale = true;
  return old;
}

CSize CDC::SetWindowExt(int cx, int cy) {
  const CSize old = GetWindowExt();
  m_mapX.setExtents(cx, m_mapX.viewportExtent());
  m_mapY.setExtents(cy, m_mapY.viewportExtent());
  m_penStale = true;
  return old;
}

CPoint CDC::SetViewportOrg(int x, int y) {
  const CPoint old = GetViewportOrg();
  m_mapX.setOrigins(m_mapX.windowOrigin(), x);
  m_mapY.setOrigins(m_mapY.windowOrigin(), y);
  m_penStale = true;
  return old;
}

CSize CDC::SetViewportExt(int cx, int cy) {
  const CSize old = GetViewportExt();
  m_mapX.setExtents(m_mapX.windowExtent(), cx);
  m_mapY.setExtents(m_mapY.windowExtent(), cy);
  m_penStale = true;
  return old;
}

void CDC::DPtoLP(POINT* points, int count) const {
  for (int i = 0; i < count; ++i)
    points[i] = {m_mapX.toLogical(points[i].x), m_mapY.toLogical(points[i].y)};
}

void CDC::DPtoLP(RECT* rect) const {
  *rect = {m_mapX.toLogical(rect->left), m_mapY.toLogical(rect->top), m_mapX.toLogical(rect->right),
           m_mapY.toLogical(rect->bottom)};
}

void CDC::LPtoDP(POINT* points, int count) const {
  for (int i = 0; i < count; ++i)
    points[i] = toDevice(points[i]);
}

void CDC::LPtoDP(RECT* rect) const {
  *rect = {m_mapX.toDevice(rect->left), m_mapY.toDevice(rect->top), m_mapX.toDevice(rect->right),
           m_mapY.toDevice(rect->bottom)};
}

CRect CDC::toDeviceRect(const RECT& rect) const {
  CRect device = rect;
  LPtoDP(&device);
  device.NormalizeRect();
  return device;
}

// Selected objects

CPen* CDC::SelectObject(CPen* pen) {
  return pen ? static_cast<CPen*>(m_pen.select(pen)) : nullptr;
}

CBrush* CDC::SelectObject(CBrush* brush) {
  return brush ? static_cast<CBrush*>(m_brush.select(brush)) : nullptr;
}

CFont* CDC::SelectObject(CFont* font) {
  return font ? static_cast<CFont*>(m_font.select(font)) : nullptr;
}

CBitmap* CDC::SelectObject(CBitmap* bitmap) {
  if (!m_memory) return nullptr;
  auto* old = static_cast<CBitmap*>(m_bitmap.select(bitmap));
  m_memory->setPixels(bitmap && !bitmap->isEmpty() ? bitmap->pixels() : onePixel());
  return old;
}

CGdiObject* CDC::SelectGdiObject(CGdiObject* object) {
  if (!object) return nullptr;
  switch (object->objectType()) {
    case OBJ_PEN:
      return m_pen.select(object);
    case OBJ_BRUSH:
      return m_brush.select(object);
    case OBJ_FONT:
      return m_font.select(object);
    case OBJ_BITMAP:
      return SelectObject(static_cast<CBitmap*>(object));
    default:
      return nullptr;
  }
}

CGdiObject* CDC::SelectStockObject(int index) {
  return SelectGdiObject(GetStockObject(index));
}

CGdiObject* CDC::GetCurrentObject(int kind) const {
  switch (kind) {
    case OBJ_PEN:
      return m_pen.object();
    case OBJ_BRUSH:
      return m_brush.object();
    case OBJ_FONT:
      return m_font.object();
    case OBJ_BITMAP:
      return m_bitmap.object();
    default:
      return nullptr;
  }
}

// Modes

int CDC::SetROP2(int rop2) {
  if (rop2 < R2_BLACK || rop2 > kLastRop2) return 0;
  return std::exchange(m_state.rop2, rop2);
}

int CDC::SetBkMode(int mode) {
  const int old = GetBkMode();
  if (mode == TRANSPARENT || mode == OPAQUE) m_state.fill.opaque = mode == OPAQUE;
  return old;
}

COLORREF CDC::SetBkColor(COLORREF color) {
  return std::exchange(m_state.fill.background, color);
}

COLORREF CDC::SetTextColor(COLORREF color) {
  return std::exchange(m_textColor, color);
}

unsigned CDC::SetTextAlign(unsigned align) {
  return std::exchange(m_textAlign, align);
}

int CDC::SetPolyFillMode(int mode) {
  const int old = m_state.fillMode;
  if (mode == ALTERNATE || mode == WINDING) m_state.fillMode = mode;
  return old;
}

int CDC::SelectClipRgn(const CRgn* region) {
  constexpr int kNullRegion = 1;
  constexpr int kSimpleRegion = 2;
  m_state.clip = region ? region->box() : qdr::DeviceState().clip;
  return m_state.clip.left < m_state.clip.right && m_state.clip.top < m_state.clip.bottom
             ? kSimpleRegion
             : kNullRegion;
}

int CDC::GetDeviceCaps(int index) const {
  return m_surface ? m_surface->deviceCaps(index) : 0;
}

// The state handed to the surface

namespace {

// On and off lengths of the line styles in pixels of the pen's width.
struct LineStyle {
  int style;
  std::initializer_list<double> lengths;
};

const LineStyle kLineStyles[] = {
    {PS_DASH, {18, 6}},
    {PS_DOT, {3, 3}},
    {PS_DASHDOT, {9, 6, 3, 6}},
    {PS_DASHDOTDOT, {9, 3, 3, 3, 3, 3}},
};

void setPattern(qdr::DashPattern& pattern) {
  pattern.period = 0;
  for (const double length : pattern.lengths)
    pattern.period += length;
}

// Lengths in logical units; the line styles count pixels, so theirs are scaled back.
void resolvePattern(const CPen& pen, qdr::DeviceStroke& stroke) {
  qdr::DashPattern& pattern = stroke.dashes;
  pattern.lengths.clear();
  const int style = pen.style() & PS_STYLE_MASK;
  if (style == PS_USERSTYLE) {
    for (const DWORD length : pen.dashes())
      pattern.lengths.push_back(length);
    // An odd list goes round twice before on and off stand as at the start.
    const std::size_t count = pattern.lengths.size();
    if (count % 2 == 1)
      for (std::size_t i = 0; i < count; ++i)
        pattern.lengths.push_back(pattern.lengths[i]);
  } else if (pen.width() <= 1) {
    for (const LineStyle& row : kLineStyles) {
      if (row.style != style) continue;
      const double unit = std::round(stroke.width) * stroke.unitsPerPixelX;
      for (const double length : row.lengths)
        pattern.lengths.push_back(length * unit);
    }
  }
  setPattern(pattern);
}

}  // namespace

void CDC::resolvePen() {
  const CPen& pen = *GetCurrentPen();
  qdr::DeviceStroke& stroke = m_state.stroke;
  const double scaleX = std::fabs(m_mapX.scale());
  stroke.style = pen.style();
  stroke.logicalWidth = pen.width();
  stroke.visible = (pen.style() & PS_STYLE_MASK) != PS_NULL;
  stroke.color = pen.color();
  stroke.width = pen.width() > 0 ? std::max(1.0, pen.width() * scaleX) : 1.0;
  stroke.unitsPerPixelX = 1 / scaleX;
  stroke.unitsPerPixelY = 1 / std::fabs(m_mapY.scale());
  resolvePattern(pen, stroke);
  stroke.dashPhase = 0;
  m_penStale = false;
  m_pen.acceptChange();
}

void CDC::resolveBrush() {
  const LOGBRUSH& brush = GetCurrentBrush()->data();
  m_state.fill.style = brush.lbStyle;
  m_state.fill.color = brush.lbColor;
  m_state.fill.hatch = static_cast<int>(brush.lbHatch);
  m_brush.acceptChange();
}

const qdr::DeviceState& CDC::paintState() {
  if (m_brush.isChanged()) resolveBrush();
  return strokeState();
}
