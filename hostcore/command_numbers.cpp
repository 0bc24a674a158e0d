#include "hostcore/command_numbers.h"

namespace {

constexpr unsigned kDimensionKinds = 10;

bool isOwn(unsigned number) {
  const bool log = number == qdr::kUndoCommand || number == qdr::kRedoCommand;
  return log || (number >= qdr::kZoomInCommand && number <= qdr::kLivePanCommand);
}

}  // namespace

namespace qdr {

QdrDb::CommandID commandOf(unsigned number, unsigned long& option) {
  if (number > kDimensionBase && number <= kDimensionBase + kDimensionKinds) {
    option = number - kDimensionBase;
    return QdrDb::eCommandDim;
  }
  // A dimension has its kind in its number, so its selector alone is none.
  const unsigned selector = number - kCommandBase;
  const bool known = number > kCommandBase && selector <= QdrDb::eCommandPolylineedit &&
                     selector != QdrDb::eCommandDim;
  return known ? static_cast<QdrDb::CommandID>(selector) : QdrDb::eCommandNone;
}

bool isHostCommand(unsigned number) {
  unsigned long ignored = 0;
  return isOwn(number) || commandOf(number, ignored) != QdrDb::eCommandNone;
}

}  // namespace qdr
