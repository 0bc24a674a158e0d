#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "database/database.h"
#include "entities/entity.h"

namespace qdr::test {

/// The bytes that an object saves through its database's file.
std::string bytesOf(CQdrDbObject& object);

/// Lets an object read itself from bytes; a short text is a short file.
void readFrom(CQdrDbObject& object, const std::string& bytes);

/// An entity of a database, outside the drawing, from its keyword and numbers:
///
///     line x1 y1 x2 y2         arc cx cy radius startDegrees endDegrees
///     circle cx cy radius      rect left top right bottom        point x y size
///     ellipse cx cy majorX majorY ratio
///     ellipsearc cx cy majorX majorY ratio startDegrees endDegrees
///     box x y width height degrees             cobweb cx cy inner outer wings degrees
///     spiral chordsPerTurn cx cy maxRadius minRadius pitch startDegrees
///     polyline x y bulge x y bulge ...         loop, the same closed
///     spline fit x y x y ...           cspline x y option x y option ...
///
/// It has passed through save and read, so whatever a file loses is lost; not so a cobweb, which
/// no file brings. Null, with a failure of
/// the running test, for a text that is none of these.
std::unique_ptr<CQdrDbEntity> entityFromText(CQdrDbDatabase& database, std::string_view text);

/// The same, added to the drawing, which owns it.
CQdrDbEntity* addFromText(CQdrDbDatabase& database, std::string_view text);

/// The same as its own class; `Class` must be that of the text.
template <class Class>
Class* addAs(CQdrDbDatabase& database, std::string_view text) {
  return static_cast<Class*>(addFromText(database, text));
}

}  // namespace qdr::test
