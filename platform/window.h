#pragma once

// All windows and controls.
#include "platform/combo_box.h"
#include "platform/dialog.h"
#include "platform/edit.h"
#include "platform/frame.h"
#include "platform/input.h"
#include "platform/list_ctrl.h"
#include "platform/menu.h"
#include "platform/wnd.h"
