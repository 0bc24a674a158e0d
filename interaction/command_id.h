#pragma once

namespace QdrDb {

/// Selector of CQdrCommandHandler::DoCommand. Numbers that are not named here do nothing.
enum CommandID : int {
  eCommandNone = 0,
  eCommandLine = 1,
  eCommandArc = 2,
  eCommandCircle = 3,
  eCommandEllipse = 4,
  eCommandEllipseArc = 5,
  eCommandPolyline = 6,
  eCommandArcPolyline = 7,
  eCommandPolygon = 8,
  eCommandPolyStar = 9,
  eCommandSpiral = 10,
  eCommandSpline = 11,
  eCommandCSpline = 12,
  eCommandCobweb = 13,
  eCommandHatch = 15,
  eCommandText = 16,
  eCommandRect = 17,
  eCommandBox = 18,
  eCommandDim = 19,
  eCommandErase = 24,
  eCommandArray = 25,
  eCommandCopy = 26,
  eCommandCopyRotate = 27,
  eCommandMirror = 28,
  eCommandRotate = 29,
  eCommandScale = 30,
  eCommandMove = 31,
  eCommandExplode = 32,
  eCommandExtend = 33,
  eCommandTrim = 34,
  eCommandPolylineedit = 36
};

/// What a tracker does to its entity; none also stands for a grip edit.
enum TransFormOption : int {
  eTransformNone = 0,
  eTransformCopy = 1,
  eTransformMove = 2,
  eTransformRotate = 3,
  eTransformMirror = 4,
  eTransformScale = 5
};

/// Answers of the input layer.
enum InputResult : int {
  InputLost = -1,       ///< the window lost the mouse capture
  InputCancel = 0,      ///< Esc, Ctrl+C, right button, or an empty client rectangle
  InputPick = 1,        ///< a point in the database's lastPoint, or entities
  InputNumber = 3004,   ///< a plain number was typed
  InputPoint = 3005,    ///< a point was typed; also in the database's lastPoint
  InputKeyword = 3006,  ///< a keyword was pressed; the upper-case character
  InputText = 3007,     ///< text that is neither number nor point
  InputEnter = 3008     ///< Enter or Space on an empty buffer
};

}  // namespace QdrDb

namespace qdr {

using QdrDb::InputResult;

constexpr InputResult kInputLost = QdrDb::InputLost;
constexpr InputResult kInputCancel = QdrDb::InputCancel;
constexpr InputResult kInputPick = QdrDb::InputPick;
constexpr InputResult kInputNumber = QdrDb::InputNumber;
constexpr InputResult kInputPoint = QdrDb::InputPoint;
constexpr InputResult kInputKeyword = QdrDb::InputKeyword;
constexpr InputResult kInputText = QdrDb::InputText;
constexpr InputResult kInputEnter = QdrDb::InputEnter;

/// True for every answer that goes on with the command.
inline bool accepted(int result) {
  return result > 0;
}

}  // namespace qdr
