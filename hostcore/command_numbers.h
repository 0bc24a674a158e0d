#pragma once

#include "interaction/command_id.h"
#include "platform/export.h"

namespace qdr {

// Numbers of commands as menus and the command file know them.
inline constexpr unsigned kCommandBase = 40000;    ///< plus the selector of DoCommand
inline constexpr unsigned kDimensionBase = 40190;  ///< plus the kind of the dimension, 1 to 10
inline constexpr unsigned kUndoCommand = 40101;
inline constexpr unsigned kRedoCommand = 40102;
inline constexpr unsigned kZoomInCommand = 40110;
inline constexpr unsigned kZoomOutCommand = 40111;
inline constexpr unsigned kZoomPreviousCommand = 40112;
inline constexpr unsigned kZoomExtentsCommand = 40113;
inline constexpr unsigned kZoomAllCommand = 40114;
inline constexpr unsigned kZoomWindowCommand = 40115;
inline constexpr unsigned kPanCommand = 40116;
inline constexpr unsigned kLivePanCommand = 40117;

/// The selector of a number; eCommandNone for a number that DoCommand has no part in. The kind of a
/// dimension goes into `option`, which otherwise stays.
QDR_API QdrDb::CommandID commandOf(unsigned number, unsigned long& option);

/// True for a number that a host carries out.
QDR_API bool isHostCommand(unsigned number);

}  // namespace qdr
