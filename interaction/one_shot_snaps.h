#pragma once

#include "interaction/command_handler.h"

namespace qdr {

/// The one-shot snaps end with the input that they were armed for, whichever way it ends.
class OneShotSnaps {
 public:
  explicit OneShotSnaps(CQdrCommandHandler& handler) : m_handler(handler) {}
  ~OneShotSnaps() { m_handler.clearOneShotSnaps(); }
  OneShotSnaps(const OneShotSnaps&) = delete;
  OneShotSnaps& operator=(const OneShotSnaps&) = delete;

 private:
  CQdrCommandHandler& m_handler;
};

}  // namespace qdr
