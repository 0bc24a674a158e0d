#pragma once

#include "platform/export.h"

class CQdrDbEntity;

namespace qdr {

/// Adds the parts of a polyline, spline, spiral or cobweb to its drawing, with the steps of the log
/// that begin a user action, and then marks it erased as the last of them. False, with nothing
/// done, for any other class and for an entity outside a drawing.
QDR_API bool explodeEntity(CQdrDbEntity& entity);

}  // namespace qdr
