// The loop of a tracker: mouse moves, cursor keys, typed answers.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>

#include "database/database.h"
#include "entities/display_units.h"
#include "entities/entity.h"
#include "interaction/command_handler.h"
#include "interaction/display/display_table_record.h"
#include "interaction/input_loop.h"
#include "interaction/one_shot_snaps.h"
#include "interaction/point_parser.h"
#include "interaction/trackers/entity_tracker.h"
#include "platform/device_context.h"
#include "platform/window.h"

using qdr::InputLoop;

namespace {

constexpr COLORREF kWhite = 0xffffff;
constexpr std::size_t kTypedRoom = 256;  // characters, the closing 0 included
constexpr unsigned kTextOption = 12;     // a tracker of a text: blanks stay in the buffer
const CPoint kNoPosition(-1, -1);

bool isArrowKey(WPARAM key) {
  return key >= VK_LEFT && key <= VK_DOWN;
}

}  // namespace

int CQdrDbEntityTracker::TrackHandle(CWnd* window, CPoint point, int handle) {
  const bool somethingToDo = m_createMode || handle >= 0 || m_transOpt != QdrDb::eTransformNone;
  if (!somethingToDo || !m_handler || !m_db || m_handler->isQuitting()) return qdr::kInputCancel;
  if (!qdr::takesInput(window, m_validRect) || !IsValidPos(point)) return qdr::kInputCancel;
  m_window = window;
  m_handle = handle;
  m_endMessage = handle >= 0 ? WM_LBUTTONUP : WM_LBUTTONDOWN;
  m_lastDevice = kNoPosition;
  if (handle >= 0 && m_dc) {
    CPoint logical = point;
    m_dc->DPtoLP(&logical);
    m_rubberStart = m_rubberEnd = m_currentPoint = logical;
    m_exactStart.reset();
    m_exactEnd.reset();
    m_lastDevice = point;
  }
  return runLoop(handle);
}

int CQdrDbEntityTracker::runLoop(int handle) {
  m_typed.clear();
  m_result = Return_Struct();
  m_finished = m_keyMoved = m_snapped = m_rubberShown = m_shapeMoved = false;
  InputLoop loop(*m_handler, *m_window);
  // A grip keeps the cursor that it showed under the mouse.
  const qdr::CursorScope cursor(handle < 0 ? m_handler->crossCursor() : nullptr);
  const qdr::OneShotSnaps snaps(*m_handler);
  CPen pen(PS_SOLID, m_rubberWidth, m_rubberColor);
  const qdr::PenScope penScope(m_dc, pen);
  const bool onWhite = m_dc && m_dc->GetBkColor() == kWhite;
  const qdr::RasterScope raster(m_dc, onWhite ? R2_NOTXORPEN : R2_XORPEN);
  delete m_currentEntity;
  m_currentEntity = m_entity ? CopyEntity(m_entity) : nullptr;
  drawCurrentEntity();
  loop.setMarks([this] {
    if (m_rubberShown) DrawRubber();
    drawCurrentEntity();
  });

  int result = qdr::kInputCancel;
  MSG message;
  while (!m_finished) {
    const bool goesOn = loop.next(message);
    if (m_finished) break;  // the entity was deleted while the loop waited
    if (!goesOn) {
      m_handler->CheckBlipDraw(m_snapPrev);
      eraseRubber();
      drawCurrentEntity();
      result = loop.end() == InputLoop::End::lost ? qdr::kInputLost : qdr::kInputCancel;
      break;
    }
    result = handleMessage(message, handle);
  }
  m_handler->CheckBlipDraw(m_snapPrev);
  delete m_currentEntity;
  m_currentEntity = nullptr;
  return result;
}

int CQdrDbEntityTracker::handleMessage(const MSG& message, int handle) {
  if (message.message == m_endMessage) return onPick(qdr::unpackedPoint(message.lParam), handle);
  switch (message.message) {
    case WM_MOUSEMOVE:
      onMouse(qdr::unpackedPoint(message.lParam), handle);
      break;
    case WM_RBUTTONDOWN:
      eraseRubber();
      drawCurrentEntity();
      m_finished = true;
      break;
    case WM_KEYDOWN:
      // The bare rubber line leaves the cursor keys alone until they are let go.
      if (m_trackerType != eTrackEntity && MoveKeyHandle(message)) break;
      return onKeyDown(message, handle);
    case WM_KEYUP:
      if (!MoveKeyHandle(message)) InputLoop::dispatch(message);
      break;
    case WM_CHAR:
      return onCharacter(message);
    default:
      InputLoop::dispatch(message);
  }
  return qdr::kInputCancel;
}

int CQdrDbEntityTracker::onPick(CPoint device, int handle) {
  // A press outside the view is none; a drag is let go of wherever that happens.
  if (!m_validRect.PtInRect(device) && m_endMessage == WM_LBUTTONDOWN) return qdr::kInputCancel;
  if (!(device == m_lastDevice)) onMouse(device, handle);
  m_handler->readClickModifier();
  commitPoint(handle);
  m_finished = true;
  return qdr::kInputPick;
}

// The shape follows where the grid has put the point, so that what is stored is what was recorded.
void CQdrDbEntityTracker::commitPoint(int handle) {
  const CPoint before = m_currentPoint;
  settlePoint();
  if (!(before == m_currentPoint) && (m_createMode || m_shapeMoved)) refreshShape(handle);
  ControlEnd(handle);
}

// The host's answer to message 1124 may move the current point for ortho and grid.
void CQdrDbEntityTracker::onMouse(CPoint device, int handle) {
  if (!m_validRect.PtInRect(device)) return;
  if (!m_rubberShown && device == m_lastDevice) return;  // still where the drag began
  m_lastDevice = device;
  CPoint point = device;
  if (m_dc) m_dc->DPtoLP(&point);
  CPoint start = m_rubberStart;
  m_window->SendMessage(qdr::kCoordinateMessage, reinterpret_cast<WPARAM>(&start),
                        reinterpret_cast<LPARAM>(&point));
  CQdrGePoint2d world = qdr::toWorld(point);
  m_snapped = m_handler->CheckSnapPoint(m_snapPrev, world, m_snapOut);
  if (m_snapped) point = qdr::toLogical(m_snapOut);
  m_currentPoint = point;
  m_exactEnd.reset();
  if (m_rubberShown && m_currentPoint == m_rubberPrevEnd) return;
  eraseRubber();
  m_rubberEnd = m_currentPoint;
  DrawRubber();
  m_rubberShown = m_dc != nullptr;
  refreshShape(handle);
}

// Each frame is built fresh from the entity, so that nothing drifts.
void CQdrDbEntityTracker::refreshShape(int handle) {
  if (!m_currentEntity || !m_entity) return;
  drawCurrentEntity();
  *m_currentEntity = *m_entity;
  if (m_createMode) {
    CheckCreateOption(m_currentEntity, m_currentPoint);
  } else if (m_transOpt != QdrDb::eTransformNone) {
    TransFormEntity(m_currentEntity);
  } else {
    UpdateEntity(m_currentEntity, handle);
  }
  m_shapeMoved = true;
  drawCurrentEntity();
}

bool CQdrDbEntityTracker::MoveKeyHandle(const MSG& message) {
  if (!isArrowKey(message.wParam)) return false;
  if (message.message == WM_KEYUP) {
    m_keyMoved = true;
    return true;
  }
  const CQdrDbDisplayTableRecord* const view = m_db->m_displayTable.getCurrentRecord();
  LONG step = 1;
  if (m_db->m_vars.snapGrid != 0 && view && view->scaleX() > 0.0) {
    const double pixels = m_db->m_vars.gridSpacing * _dDispScale / view->scaleX();
    step = std::max<LONG>(1, qdr::truncToInt(pixels));
  }
  CPoint position;
  GetCursorPos(&position);
  m_window->ScreenToClient(&position);
  if (message.wParam == VK_LEFT) position.x -= step;
  if (message.wParam == VK_RIGHT) position.x += step;
  if (message.wParam == VK_UP) position.y -= step;
  if (message.wParam == VK_DOWN) position.y += step;
  m_window->SendMessage(WM_MOUSEMOVE, 0, qdr::packedPoint(position));
  onMouse(position, m_handle);
  CPoint onScreen = position;
  m_window->ClientToScreen(&onScreen);
  SetCursorPos(onScreen.x, onScreen.y);
  return true;
}

int CQdrDbEntityTracker::onKeyDown(const MSG& message, int handle) {
  const int result = KeyDownHandle(message);
  if (!m_finished) return result;
  if (result == qdr::kInputEnter) return m_keyMoved ? qdr::kInputPick : endOfEmptyLine();
  if (result == qdr::kInputPoint) return onTypedPoint(handle);
  if (result != qdr::kInputCancel) drawCurrentEntity();
  return result;
}

// Enter without an answer ends the shapes that are made of several picks, and a rotation that may
// be left out; everything else counts as cancelled.
int CQdrDbEntityTracker::endOfEmptyLine() {
  drawCurrentEntity();
  const bool ofManyPicks = m_trackerType == eTrackPolyline || m_trackerType == eTrackSpline ||
                           m_trackerType == eTrackCSpline;
  const bool optionalTurn = m_trackerType == eTrackBox && m_transOpt == QdrDb::eTransformRotate;
  return (ofManyPicks && m_createMode) || optionalTurn ? qdr::kInputEnter : qdr::kInputCancel;
}

// A command puts a typed point into what it makes; a drag of an entity ends at it.
int CQdrDbEntityTracker::onTypedPoint(int handle) {
  if (m_createMode || !m_currentEntity) {
    drawCurrentEntity();
    return qdr::kInputPoint;
  }
  SetPos(m_db->m_lastPoint);
  refreshShape(handle);
  ControlEnd(handle);
  return qdr::kInputPoint;
}

int CQdrDbEntityTracker::KeyDownHandle(const MSG& message) {
  const WPARAM key = message.wParam;
  if (qdr::isCancelKey(key)) {
    eraseRubber();
    drawCurrentEntity();
    m_finished = true;
    return qdr::kInputCancel;
  }
  if (key == VK_F4) {
    m_db->m_vars.snapGrip = m_db->m_vars.snapGrip == 0;
    return qdr::kInputCancel;
  }
  const bool blankOfText =
      key == VK_SPACE && (m_option == kTextOption || m_trackerType == eTrackText);
  if (!qdr::isEndKey(key) || blankOfText) {
    InputLoop::translate(message);
    return blankOfText ? qdr::kInputEnter : qdr::kInputCancel;
  }
  m_finished = true;
  m_result.value.text = m_typed.data();
  int result = qdr::kInputEnter;
  if (!m_typed.empty()) {
    result = readTyped();
  } else if (m_keyMoved) {
    commitPoint(m_handle);
  }
  eraseRubber();
  m_result.code = result;
  return result;
}

int CQdrDbEntityTracker::readTyped() {
  const qdr::TypedAnswer answer = qdr::parseTyped(m_typed, qdr::toWorld(m_rubberStart));
  if (answer.code == qdr::kInputPoint) {
    m_result.value.number[0] = answer.point.x;
    m_result.value.number[1] = answer.point.y;
    m_db->m_lastPoint = answer.point;
  } else if (answer.code == qdr::kInputNumber) {
    m_result.value.number[0] = answer.number;
  }
  return answer.code;
}

// The character goes on to the display window, whose host hands it to the input line.
int CQdrDbEntityTracker::onCharacter(const MSG& message) {
  const int result = CharHandle(message);
  CWnd* const display = m_handler->GetDispWindow();
  if (display) display->SendMessage(WM_CHAR, message.wParam, message.lParam);
  return result;
}

int CQdrDbEntityTracker::CharHandle(const MSG& message) {
  const wchar_t character = qdr::keywordCase(static_cast<wchar_t>(message.wParam));
  if (character == VK_BACK) {
    if (!m_typed.empty()) m_typed.pop_back();
    return qdr::kInputCancel;
  }
  if (m_keywords.Find(character) < 0) {
    m_handler->CheckSnapChar(character);
    if (m_typed.size() + 1 < kTypedRoom) m_typed += character;
    return qdr::kInputCancel;
  }
  m_result.code = qdr::kInputKeyword;
  m_result.value.keyword = character;
  eraseRubber();
  drawCurrentEntity();
  m_finished = true;
  return qdr::kInputKeyword;
}
