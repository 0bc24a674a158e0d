// Points, distances and angles: the raw loop of a pick, and the measures that a rubber line takes.

#include "database/database.h"
#include "geometry/point2d.h"
#include "interaction/command_handler.h"
#include "interaction/commands/drawing_step.h"
#include "interaction/display/display_table_record.h"
#include "interaction/grid_rounding.h"
#include "interaction/input_loop.h"
#include "interaction/one_shot_snaps.h"
#include "interaction/point_parser.h"
#include "interaction/trackers/entity_tracker.h"
#include "platform/window.h"

using qdr::InputLoop;

namespace {

// Rests of a pick that is under way.
struct Pick {
  CQdrGePoint2d point;
  CQdrGePoint2d mark;  // where the blip stands
  int result = qdr::kInputPick;
  bool given = false;  // a point was picked or typed
  bool done = false;
};

// The raw loop of GetGePoint, one member per kind of message.
class PointLoop {
 public:
  PointLoop(CQdrCommandHandler& handler, CQdrDbDatabase& database, CWnd& window,
            const CString& keywords, wchar_t& key)
      : m_handler(handler),
        m_database(database),
        m_window(window),
        m_keywords(keywords),
        m_key(key) {}

  void handle(const MSG& message) {
    switch (message.message) {
      case WM_RBUTTONDOWN:
        finish(qdr::kInputCancel);
        break;
      case WM_MOUSEMOVE:
      case WM_LBUTTONDOWN:
        onMouse(message);
        break;
      case WM_KEYDOWN:
        onKey(message);
        break;
      case WM_CHAR:
        onCharacter(message);
        break;
      default:
        InputLoop::dispatch(message);
    }
  }

  Pick& pick() { return m_pick; }

 private:
  void finish(int result) {
    m_pick.result = result;
    m_pick.done = true;
  }

  void onMouse(const MSG& message) {
    CPoint device = qdr::unpackedPoint(message.lParam);
    CRect client;
    m_window.GetClientRect(&client);
    CQdrDbDisplayTableRecord* const view = m_database.m_displayTable.getCurrentRecord();
    if (!client.PtInRect(device) || !view) return;
    m_window.SendMessage(qdr::kCoordinateMessage, reinterpret_cast<WPARAM>(&device), 0);
    m_pick.point = view->GetLogicalPoint(device);
    CQdrGePoint2d hit;
    const bool snapped = m_handler.CheckSnapPoint(m_pick.mark, m_pick.point, hit);
    if (snapped) m_pick.point = hit;
    if (message.message != WM_LBUTTONDOWN) return;
    if (!snapped && m_database.m_vars.snapGrid != 0) {
      m_pick.point = qdr::roundedToGrid(m_pick.point, m_database.m_vars.gridSpacing);
    }
    m_pick.given = true;
    finish(qdr::kInputPick);
  }

  void onKey(const MSG& message) {
    if (message.wParam == VK_F4) {
      m_database.m_vars.snapGrip = m_database.m_vars.snapGrip == 0;
    } else if (qdr::isCancelKey(message.wParam)) {
      finish(qdr::kInputCancel);
    } else if (qdr::isEndKey(message.wParam)) {
      // An empty or unusable line takes the last point.
      if (!m_handler.readTypedPoint(m_pick.point)) m_pick.point = m_database.m_lastPoint;
      m_pick.given = true;
      finish(qdr::kInputPick);
    } else {
      InputLoop::translate(message);
    }
  }

  // The character goes on to the display window, whose host hands it to the input line.
  void onCharacter(const MSG& message) {
    const wchar_t character = qdr::keywordCase(static_cast<wchar_t>(message.wParam));
    if (m_keywords.Find(character) >= 0) {
      m_key = character;
      finish(qdr::kInputKeyword);
    } else {
      m_handler.CheckSnapChar(character);
    }
    m_window.SendMessage(WM_CHAR, message.wParam, message.lParam);
  }

  CQdrCommandHandler& m_handler;
  CQdrDbDatabase& m_database;
  CWnd& m_window;
  const CString& m_keywords;
  wchar_t& m_key;
  Pick m_pick;
};

}  // namespace

int CQdrCommandHandler::GetGePoint(int prompt, CQdrGePoint2d& point) {
  return GetGePoint(prompt, point, CString());
}

int CQdrCommandHandler::GetGePoint(int prompt, CQdrGePoint2d& point, const CString& keywords) {
  wchar_t ignored = 0;
  return GetGePoint(prompt, point, keywords, ignored);
}

int CQdrCommandHandler::GetGePoint(int prompt, CQdrGePoint2d& point, const CString& keywords,
                                   wchar_t& key) {
  if (m_quitting) return qdr::kInputCancel;
  SetPrompt(prompt);
  CRect client;
  if (!m_database || !qdr::takesInput(m_dispWindow, client)) return qdr::kInputCancel;

  InputLoop loop(*this, *m_dispWindow);
  const qdr::CursorScope cursor(m_crossCursor);
  const qdr::RasterScope raster(m_database->screenDC(), R2_XORPEN);
  const qdr::OneShotSnaps snaps(*this);
  PointLoop points(*this, *m_database, *m_dispWindow, keywords, key);
  Pick& pick = points.pick();
  pick.point = point;
  MSG message;
  while (!pick.done && loop.next(message))
    points.handle(message);
  if (loop.end() == InputLoop::End::cancelled) pick.result = qdr::kInputCancel;
  CheckBlipDraw(pick.mark);
  point = pick.point;
  if (pick.given) m_database->m_lastPoint = point;
  return pick.result;
}

bool CQdrCommandHandler::readTypedPoint(CQdrGePoint2d& point) {
  readInputText();
  return getInputValue(point);
}

int CQdrCommandHandler::GetGePoint(int prompt, CQdrGePoint2d& point, CQdrGePoint2d start,
                                   wchar_t key) {
  const wchar_t keywords[] = {key, 0};
  const int result = trackFrom(prompt, start, keywords);
  if (result == qdr::kInputPick || result == qdr::kInputPoint) point = m_database->m_lastPoint;
  return result;
}

int CQdrCommandHandler::GetGePoint(CQdrGePoint2d& first, CQdrGePoint2d& second) {
  if (GetGePoint(QdrDb::ePromptFirstCorner, first) != qdr::kInputPick) return qdr::kInputCancel;
  return GetGePoint(QdrDb::ePromptOppositeCorner, second, first, 0);
}

// Tracks a rubber line from a point; lastResult takes what was answered.
int CQdrCommandHandler::trackFrom(int prompt, CQdrGePoint2d start, const wchar_t* keywords) {
  if (m_quitting || !m_database || !m_dispWindow) return qdr::kInputCancel;
  CQdrDbEntityTracker tracker(m_dispWindow, m_database, true);
  tracker.SetKeyWords(keywords);
  tracker.SetStartPoint(start, true);
  SetPrompt(prompt);
  const int result = tracker.Track(m_dispWindow, CPoint(0, 0));
  keepResult(result, tracker.resBuffer());
  return result;
}

// The typed text of a result lies in its tracker, so it is kept beside the record.
void CQdrCommandHandler::keepResult(int code, const Return_Struct& result) {
  m_lastResult = result;
  if (code != qdr::kInputText) return;
  m_typedText = result.value.text ? result.value.text : L"";
  m_lastResult.value.text = m_typedText.data();
}

// The point that a measure starts from: given, or asked under the prompt. `prompt` becomes that of
// the second point.
bool CQdrCommandHandler::startOfMeasure(int& prompt, const CQdrGePoint2d* from,
                                        CQdrGePoint2d& start) {
  if (prompt == QdrDb::ePromptNone) prompt = QdrDb::ePromptFirstPoint;
  if (from) {
    start = *from;
    return true;
  }
  if (GetGePoint(prompt, start) == qdr::kInputCancel) return false;
  prompt = QdrDb::ePromptSecondPoint;
  return true;
}

double CQdrCommandHandler::GetDistance(int prompt, CQdrGePoint2d* from) {
  CQdrGePoint2d ignored;
  return GetDistance(prompt, from, ignored);
}

double CQdrCommandHandler::GetDistance(int prompt, CQdrGePoint2d* from, CQdrGePoint2d& result) {
  CQdrGePoint2d start;
  if (!startOfMeasure(prompt, from, start)) return -1.0;
  return measuredDistance(prompt, start, result);
}

double CQdrCommandHandler::GetDistance(CQdrGePoint2d& from, CQdrGePoint2d& to) {
  if (GetGePoint(QdrDb::ePromptFirstPoint, from) == qdr::kInputCancel) return -1.0;
  return measuredDistance(QdrDb::ePromptSecondPoint, from, to);
}

double CQdrCommandHandler::measuredDistance(int prompt, const CQdrGePoint2d& start,
                                            CQdrGePoint2d& end) {
  const int result = trackFrom(prompt, start, L"");
  if (result == qdr::kInputPick) {
    end = m_database->m_lastPoint;
    return start.distanceTo(end);
  }
  double distance = -1.0;
  qdr::typedNumber(result, m_lastResult, distance);
  return distance;
}

double CQdrCommandHandler::GetAngle(int prompt, CQdrGePoint2d* from) {
  CQdrGePoint2d start;
  if (!startOfMeasure(prompt, from, start)) return 0.0;
  const int result = trackFrom(prompt, start, L"");
  if (result == qdr::kInputPick) return start.angleTo(m_database->m_lastPoint);
  double degrees = 0.0;
  qdr::typedNumber(result, m_lastResult, degrees);
  return qdr::typedRadians(degrees);
}
