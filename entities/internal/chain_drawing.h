#pragma once

class CDC;
class CQdrGePolyline2d;

namespace qdr {

/// Draws a chain of lines and arcs with the pen in use, the closing segment too; its widths are not
/// looked at.
void drawChain(CDC& dc, const CQdrGePolyline2d& chain);

}  // namespace qdr
