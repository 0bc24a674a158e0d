#include "entities/display_units.h"

double _dDispScale = 100.0;
std::uint16_t _wArcRes = 100;
