#pragma once

#include "platform/export.h"

namespace qdr {

constexpr unsigned kGripMenu = 808;  ///< resource of the menu on a grip

/// Commands of the grip menu, with the numbers of its resource.
enum GripCommand : unsigned {
  kGripUnSelect = 30065,
  kGripCopy = 30066,
  kGripMove = 30067,
  kGripRotate = 30068,
  kGripScale = 30069,
  kGripMirrorX = 30070,
  kGripMirrorY = 30071,
  kGripMirrorByLine = 30072,
  kGripExplode = 30073,
  kGripErase = 30074,
  kGripChangeStart = 30075,
  kGripReverse = 30076,
  kGripDivide = 30077,
  kGripBreak = 30078,
  kGripJoin = 30079,
  kGripInsertVertex = 30080,
  kGripDeleteVertex = 30081,
  kGripLineArc = 30082,
  kGripChangeParam = 30083,
  kGripHatchProperties = 30120,
  kGripTextProperties = 30121
};

/// Makes the menu resource known, unless the host has brought its own.
QDR_API void registerGripMenu();

}  // namespace qdr
