#pragma once

#include <memory>

#include "entities/entity.h"
#include "interaction/command_handler.h"
#include "interaction/trackers/entity_tracker.h"

namespace qdr {

/// The half-made entity of a drawing command: deleted with the command unless it is taken over.
template <class Entity>
using Draft = std::unique_ptr<Entity>;

/// Tracks a half-made entity from a point under a prompt; the base of every simple command.
/// The tracker's answer stays readable until it is destroyed.
int trackDraft(CQdrCommandHandler& handler, CQdrDbEntityTracker& tracker,
               const CQdrGePoint2d& start, int prompt);

/// The number in an answer that is no pick; a text counts as the number it begins with. False for
/// any other answer.
bool typedNumber(int result, const Return_Struct& answer, double& number);

/// The point in an answer 3005.
CQdrGePoint2d typedPoint(const Return_Struct& answer);

}  // namespace qdr
