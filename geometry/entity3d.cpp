#include "geometry/entity3d.h"

#include "geometry/line3d.h"
#include "geometry/polyline3d.h"

CQdrGeEntity3d* CQdrGeEntity3d::copy() const {
  switch (m_type) {
    case QdrGe::kLine3d:
      return new CQdrGeLine3d(static_cast<const CQdrGeLine3d&>(*this));
    case QdrGe::kPolyline3d:
      return new CQdrGePolyline3d(static_cast<const CQdrGePolyline3d&>(*this));
  }
  return nullptr;
}
