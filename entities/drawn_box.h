#pragma once

#include "platform/export.h"

class CQdrDbEntity;

namespace qdr {

/// A box that no pixel of a drawn entity leaves, for indices of what lies where.
///
/// Sides are world units. What is drawn may reach beyond them by `pixels` device pixels on every
/// side, which a view converts at its own scale. A box that is not known encloses everything: the
/// entity is always drawn and always asked.
struct DrawnBox {
  double minX = 0.0;
  double minY = 0.0;
  double maxX = 0.0;
  double maxY = 0.0;
  double pixels = 0.0;
  bool known = false;
};

/// The box of an entity as it would be drawn with its present geometry, looks and settings;
/// unknown when its sides are not finite.
QDR_API DrawnBox drawnBox(CQdrDbEntity& entity);

/// The box around GetOutRect, widened by the pen and by what truncation to logical units moves;
/// the answer for a class without a rule of its own.
DrawnBox drawnBoxOfOutRect(CQdrDbEntity& entity);

}  // namespace qdr
