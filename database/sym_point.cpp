#include "database/sym_point.h"

#include "platform/file.h"

CQdrDbSymPoint::CQdrDbSymPoint(const CQdrGePoint2d& point, int penMode) : CQdrGePoint2d(point) {
  SetPenMode(penMode);
}

void CQdrDbSymPoint::Set(const CQdrGePoint2d& point, int penMode) {
  SetPoint(point);
  SetPenMode(penMode);
}

void CQdrDbSymPoint::SetPoint(const CQdrGePoint2d& point) {
  CQdrGePoint2d::operator=(point);
}

void CQdrDbSymPoint::save(CFile* file) const {
  CQdrGePoint2d::save(file);
  qdr::writeRaw(file, &m_penMode, sizeof m_penMode);
}

void CQdrDbSymPoint::read(CFile* file) {
  CQdrGePoint2d::read(file);
  qdr::readRaw(file, &m_penMode, sizeof m_penMode);
}
