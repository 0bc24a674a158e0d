#pragma once

#include <cmath>
#include <limits>
#include <memory>
#include <numbers>
#include <sstream>
#include <string>
#include <vector>

#include "geometry/polyline2d.h"

// Builders of polylines and measurements that are independent of the kernel's own.

struct BulgeVertex {
  double x;
  double y;
  double bulge = 0.0;
};

inline CQdrGePolyline2d chainOf(const std::vector<BulgeVertex>& vertices, bool closed = false) {
  CQdrGePolyline2d chain;
  for (const BulgeVertex& v : vertices)
    chain.appendVertex({v.x, v.y}, v.bulge);
  chain.setClosed(closed);
  // Closing forms a closing bulge of its own: the one given counts here.
  if (!vertices.empty()) chain.setBulgeAt(chain.numVerts() - 1, vertices.back().bulge);
  return chain;
}

inline std::string textOf(const CQdrGePolyline2d& chain) {
  std::ostringstream out;
  out.precision(9);
  for (int i = 0; i < chain.numVerts(); ++i)
    out << "(" << chain.points()[i].x << " " << chain.points()[i].y << " b" << chain.bulges()[i]
        << ") ";
  return out.str() + (chain.isClosed() ? "closed" : "open");
}

/// A segment measured by centre and angles, where the kernel goes by bulges and chords.
class SampledSegment {
 public:
  SampledSegment(const CQdrGePolyline2d& chain, int i)
      : m_start(chain.points()[i]),
        m_end(chain.points()[(i + 1) % chain.numVerts()]),
        m_isArc(chain.segType(i) == CQdrGePolyline2d::kArcSeg) {
    if (!m_isArc) return;
    m_sweep = 4.0 * std::atan(chain.bulges()[i]);
    const double dx = m_end.x - m_start.x;
    const double dy = m_end.y - m_start.y;
    const double apothem = 0.5 / std::tan(m_sweep / 2.0);
    m_center.set((m_start.x + m_end.x) / 2.0 - dy * apothem,
                 (m_start.y + m_end.y) / 2.0 + dx * apothem);
    m_radius = std::hypot(m_start.x - m_center.x, m_start.y - m_center.y);
    m_from = std::atan2(m_start.y - m_center.y, m_start.x - m_center.x);
  }

  /// 0 of a line.
  double radius() const { return m_radius; }

  CQdrGePoint2d at(double t) const {
    if (!m_isArc)
      return {m_start.x + (m_end.x - m_start.x) * t, m_start.y + (m_end.y - m_start.y) * t};
    const double angle = m_from + m_sweep * t;
    return {m_center.x + m_radius * std::cos(angle), m_center.y + m_radius * std::sin(angle)};
  }

  double distanceTo(const CQdrGePoint2d& p) const {
    const double toEnds = std::min(std::hypot(p.x - m_start.x, p.y - m_start.y),
                                   std::hypot(p.x - m_end.x, p.y - m_end.y));
    if (!m_isArc) {
      const double dx = m_end.x - m_start.x;
      const double dy = m_end.y - m_start.y;
      const double t = ((p.x - m_start.x) * dx + (p.y - m_start.y) * dy) / (dx * dx + dy * dy);
      if (!(t > 0.0 && t < 1.0)) return toEnds;
      return std::hypot(p.x - m_start.x - t * dx, p.y - m_start.y - t * dy);
    }
    const double angle = std::atan2(p.y - m_center.y, p.x - m_center.x) - m_from;
    const double turn = m_sweep > 0.0 ? angle : -angle;
    const double whole = 2.0 * std::numbers::pi;
    if (turn - whole * std::floor(turn / whole) > std::abs(m_sweep)) return toEnds;
    return std::abs(std::hypot(p.x - m_center.x, p.y - m_center.y) - m_radius);
  }

 private:
  CQdrGePoint2d m_start;
  CQdrGePoint2d m_end;
  bool m_isArc;
  CQdrGePoint2d m_center;
  double m_radius = 0.0;
  double m_from = 0.0;
  double m_sweep = 0.0;
};

inline std::vector<SampledSegment> segmentsOfChain(const CQdrGePolyline2d& chain) {
  std::vector<SampledSegment> segments;
  const int count = chain.numVerts() - (chain.isClosed() ? 0 : 1);
  for (int i = 0; i < count; ++i)
    segments.emplace_back(chain, i);
  return segments;
}

/// Signed area that a ring of vertices encloses, arcs included; positive counter-clockwise.
inline double enclosedArea(const CQdrGePolyline2d& ring) {
  double area = 0.0;
  for (int i = 0; i < ring.numVerts(); ++i) {
    const CQdrGePoint2d& p = ring.points()[i];
    const CQdrGePoint2d& q = ring.points()[(i + 1) % ring.numVerts()];
    area += (p.x * q.y - p.y * q.x) / 2.0;
    if (ring.bulges()[i] == 0.0) continue;
    const double sweep = 4.0 * std::atan(ring.bulges()[i]);
    const double radius = std::hypot(q.x - p.x, q.y - p.y) / (2.0 * std::sin(sweep / 2.0));
    area += radius * radius * (sweep - std::sin(sweep)) / 2.0;
  }
  return area;
}

/// Takes over the polylines that an offset hands out.
class OwnedPieces {
 public:
  OwnedPieces() = default;
  explicit OwnedPieces(const std::vector<void*>& pieces) {
    for (void* piece : pieces)
      m_pieces.emplace_back(static_cast<CQdrGePolyline2d*>(piece));
  }

  std::size_t size() const { return m_pieces.size(); }
  const CQdrGePolyline2d& operator[](std::size_t i) const { return *m_pieces[i]; }
  auto begin() const { return m_pieces.begin(); }
  auto end() const { return m_pieces.end(); }

 private:
  std::vector<std::unique_ptr<CQdrGePolyline2d>> m_pieces;
};

inline OwnedPieces offsetOf(const CQdrGePolyline2d& chain, const CQdrGePoint2d& side, double dist,
                            bool both = false) {
  std::vector<void*> pieces;
  chain.offset(side, dist, pieces, both);
  return OwnedPieces(pieces);
}
