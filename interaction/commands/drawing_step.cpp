#include "interaction/commands/drawing_step.h"

namespace qdr {

int trackDraft(CQdrCommandHandler& handler, CQdrDbEntityTracker& tracker,
               const CQdrGePoint2d& start, int prompt) {
  tracker.SetKeyWords(L"");
  tracker.SetStartPoint(start, true);
  handler.SetPrompt(prompt);
  return tracker.Track(handler.GetDispWindow(), CPoint(0, 0));
}

bool typedNumber(int result, const Return_Struct& answer, double& number) {
  if (result == kInputNumber) {
    number = answer.value.number[0];
  } else if (result == kInputText) {
    number = answer.value.text ? _wtof(answer.value.text) : 0.0;
  } else {
    return false;
  }
  return true;
}

CQdrGePoint2d typedPoint(const Return_Struct& answer) {
  return {answer.value.number[0], answer.value.number[1]};
}

}  // namespace qdr
