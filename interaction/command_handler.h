#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "database/entity_access.h"
#include "entities/return_struct.h"
#include "geometry/point2d.h"
#include "interaction/command_id.h"
#include "interaction/command_names.h"
#include "interaction/prompt_handler.h"
#include "platform/export.h"
#include "platform/input.h"
#include "platform/points.h"
#include "platform/wide_string.h"

class CDC;
class CQdrDbArc;
class CQdrDbDatabase;
class CQdrDbEntity;
class CQdrDbEntityTracker;
class CWnd;

namespace qdr {
class HeldEntities;
class InputLoop;
}  // namespace qdr

/// Commands, prompts, typed input and grips of one drawing.
///
/// A command is one call that blocks in message loops inside its input calls, until it has all its
/// answers or is cancelled. Commands do not nest: while depth() is above 0 a host starts no other.
/// Until windows are set, prompts go nowhere and input answers 0. Owns the trackers on screen.
class QDR_API CQdrCommandHandler {
 public:
  /// Takes _hPROMPT over and reads the command names of "QdrDb.cmd" beside the host's program.
  explicit CQdrCommandHandler(CQdrDbDatabase* database);
  virtual ~CQdrCommandHandler();
  CQdrCommandHandler(const CQdrCommandHandler&) = delete;
  CQdrCommandHandler& operator=(const CQdrCommandHandler&) = delete;

  // Wiring by the host; nothing is owned, everything may be null.
  void SetDatabase(CQdrDbDatabase* database) { m_database = database; }
  CQdrDbDatabase* database() const { return m_database; }
  void SetDispWindow(CWnd* window) { m_dispWindow = window; }
  CWnd* GetDispWindow() const { return m_dispWindow; }
  void SetMsgWindow(CWnd* inputLine) { m_msgWindow = inputLine; }
  void setMsgWindow(CWnd* log, CWnd* inputLine);
  void SetSelCursor(HCURSOR cursor) { m_selCursor = cursor; }
  void SetCrossCursor(HCURSOR cursor) { m_crossCursor = cursor; }
  HCURSOR crossCursor() const { return m_crossCursor; }
  void SetPromptHandle(CQdrPromptHandler* prompts) { m_promptHandler = prompts; }

  // Events that the host forwards.
  /// A key at idle: Enter, Esc and Space act, see docs/interaction.md; others answer false.
  bool onKeyDown(unsigned key, unsigned repeats, unsigned flags);
  /// Typed characters reach the input line by themselves.
  void onChar(unsigned character, unsigned repeats, unsigned flags);
  /// Appends the text an input method has committed to the input line; lParam holds flag 2048.
  void OnComposition(WPARAM wParam, LPARAM lParam);
  /// Asks each tracker in turn; -1 when none wants a cursor of its own.
  int SetTrackerCursor(CWnd* window, unsigned hitTest);
  /// Draws the grips of every tracker into `dc`.
  void TrackerDraw(CDC* dc);
  /// Offers a press of the left button to every tracker, in order.
  void TrackTracker(CWnd* window, CPoint point);

  // Commands.
  /// Sends the host's number of a command to the display window and keeps it for repetition; 0
  /// does nothing. Always true.
  bool RunCommand(unsigned long number);
  /// Runs a command to its end. Answers the entity it made or changed, which for the drawing
  /// commands (1 to 19) is the host's to add; null when there is none. `option` is the command's
  /// mode word, in and out. Commands 22 to 35 keep the grips for their selection, others drop them.
  CQdrDbEntity* DoCommand(QdrDb::CommandID id, unsigned long& option);
  /// Keeps a command for repetition and closes the input line into the log.
  void SetLastCommand(unsigned long number);
  unsigned long lastCommand() const { return m_lastCommand; }

  int LoadCommandFrom();
  int addCommand(const CString& record) { return m_commandNames.addRecord(record); }
  unsigned long getCommandId(const CString& name) const { return m_commandNames.numberOf(name); }
  const qdr::CommandNames& commandNames() const { return m_commandNames; }
  int commandCount() const { return m_commandCount; }

  CQdrDbEntity* CommandLine(unsigned long& option);
  CQdrDbEntity* CommandArc(unsigned long& option);
  CQdrDbEntity* CommandCircle(unsigned long& option);
  CQdrDbEntity* CommandRect(unsigned long& option);
  int CommandErase(unsigned long& option);

  // Input; each call blocks. Results are those of qdr::InputResult.

  /// A picked or typed point, in `point` and in the drawing's lastPoint. Enter on an empty or
  /// unusable line takes lastPoint. A character of `keywords` answers 3006 with it in `key`.
  int GetGePoint(int prompt, CQdrGePoint2d& point);
  int GetGePoint(int prompt, CQdrGePoint2d& point, const CString& keywords);
  int GetGePoint(int prompt, CQdrGePoint2d& point, const CString& keywords, wchar_t& key);
  /// The same with a rubber line from `start` and one keyword; `point` is set on 1 and 3005.
  int GetGePoint(int prompt, CQdrGePoint2d& point, CQdrGePoint2d start, wchar_t key);
  /// Two corners under prompts 12 and 13; 0 when the first is not picked.
  int GetGePoint(CQdrGePoint2d& first, CQdrGePoint2d& second);
  /// A number above 0; anything else becomes 1. `key` is compared with the virtual key.
  int GetReal(int prompt, wchar_t key, double& value);
  /// A text without blanks: Space ends it.
  int GetString(int prompt, CString& text);
  /// One of `keywords`, in upper case; 1 on a hit, and only then is `key` a keyword.
  int GetKeyWord(int prompt, const CString& keywords, wchar_t& key);
  /// A distance picked from `from`, or from a point asked first, or typed; -1.0 on failure.
  double GetDistance(int prompt, CQdrGePoint2d* from);
  double GetDistance(int prompt, CQdrGePoint2d* from, CQdrGePoint2d& result);
  double GetDistance(CQdrGePoint2d& from, CQdrGePoint2d& to);
  /// An angle in radians, picked or typed in degrees; 0.0 on failure, as for an angle of zero.
  double GetAngle(int prompt, CQdrGePoint2d* from);
  /// One entity by a pick; `pickPoint`, which may be null, takes the last click, hit or not.
  int GetEntity(int prompt, CQdrDbEntity*& entity, CQdrGePoint2d* pickPoint);
  /// Any number of picks and windows, added to `entities`; 1 when it holds something, else -1.
  int GetEntities(int prompt, std::set<CQdrDbEntity*>* entities);

  // Prompt and log.
  /// Closes the previous line into the log and shows a prompt; a negative number shows nothing.
  void SetPrompt(int id);
  void Prompt(const CString& text);
  /// Moves the finished line into the log; false when its answer is not valid for its prompt.
  bool setMsg();
  CString getStrings() const { return m_logText; }
  /// Whether the typed answer suits the kind of the present prompt; the argument is not looked at.
  bool isValidValue(const CString& ignored);
  /// The typed answer behind the first ":" of the line, converted; false leaves 0 or (0, 0).
  bool getInputValue(int& value);
  bool getInputValue(double& value);
  bool getInputValue(CString& text);
  bool getInputValue(CQdrGePoint2d& point);
  /// Reads the input line and converts it; false leaves (0, 0).
  bool readTypedPoint(CQdrGePoint2d& point);
  int currentPrompt() const { return m_currentPrompt; }

  // Object snap, shared with the trackers.

  /// Arms a one-shot snap by its upper-case letter I, C or N.
  bool CheckSnapChar(wchar_t character);
  /// Looks for a snap near `point`; on a hit marks it and stores it in `previous` and `out`.
  bool CheckSnapPoint(CQdrGePoint2d& previous, CQdrGePoint2d& point, CQdrGePoint2d& out);
  void CheckBlipDraw(CQdrGePoint2d& point);
  /// Draws the mark of a snap by exclusive-or; kind 0 is the last kind, which erases it.
  void DrawBlip(CQdrGePoint2d& point, CDC* dc, int kind);
  /// Clears the three one-shot snaps.
  void clearOneShotSnaps();

  // Trackers.
  /// A tracker of the entity's class for the caller to delete; null for a class that has none.
  CQdrDbEntityTracker* CreateTracker(CWnd* window, CQdrDbEntity* entity,
                                     QdrDb::TransFormOption option, bool create);
  /// Shows the grips of an entity, unless they are shown.
  void DoDragEntity(CQdrDbEntity* entity, CPoint point);
  std::set<CQdrDbEntity*> GetSelectedEntity() const { return m_trackedEntities; }
  const std::vector<CQdrDbEntityTracker*>& trackers() const { return m_trackers; }
  /// Drops all grips. True takes them off the screen; false leaves the marks for the next redraw.
  void ClearTracker(bool deleteThem);
  void RemoveTracker(CQdrDbEntityTracker* tracker);
  /// Drops the grips of an entity, if it has any, and takes them off the screen.
  void DeleteTracker(CQdrDbEntity* entity);
  /// Lets go of entities that are about to be deleted, whoever holds them for a running command.
  void forgetEntities(const qdr::EntitySet& gone);
  void hold(qdr::HeldEntities& entities) { m_held.push_back(&entities); }
  void letGo(qdr::HeldEntities& entities) { std::erase(m_held, &entities); }

  CQdrDbEntity* lastEntity() const { return m_lastEntity; }
  /// Key held at the last pick of a tracker: 0 none, 1 Ctrl, 2 Shift, 3 Alt.
  int clickModifier() const { return m_clickModifier; }
  void readClickModifier();

  // Depth of running commands and loops.

  int depth() const { return m_depth; }
  void enter() { ++m_depth; }
  /// Inputs that have ended so far: a key that leaves the count alone ended none, and the input
  /// that took it still waits.
  unsigned long inputsEnded() const { return m_inputsEnded; }
  void leave();
  /// The loops that run, innermost last.
  void beginInput(qdr::InputLoop& loop) { m_inputs.push_back(&loop); }
  void endInput() { m_inputs.pop_back(), ++m_inputsEnded; }
  /// Draws the marks of the running inputs again, once a paint of the screen has wiped them off.
  void redrawMarks();
  /// Makes the innermost running loop answer 0.
  void RequestCancel() { m_cancelRequested = m_depth > 0; }
  bool takeCancelRequest();
  /// Once the program has been told to quit every input answers 0 at once.
  bool isQuitting() const { return m_quitting; }
  void setQuitting() { m_quitting = true; }

 protected:
  CString getInputValue();

 private:
  void appendToLog(const CString& line);
  void showLine(const CString& text);
  void showLog(const CString& text);
  bool cancelLine(const CString& typed);
  bool runTypedCommand(const CString& typed);
  void readInputText();
  CQdrDbEntity* arcByQuestion(unsigned long& option);
  CQdrDbEntity* arcByThreePoints(bool firstGiven);
  CQdrDbEntity* arcByCenter(unsigned long& option);
  CQdrDbEntity* arcByRadius(bool askCenter);
  CQdrDbEntity* arcAlongTangent();
  CQdrDbEntity* arcToEndAngle(CQdrDbArc* draft);
  CQdrDbEntity* finishedArc(std::unique_ptr<CQdrDbArc> arc);
  int trackFrom(int prompt, CQdrGePoint2d start, const wchar_t* keywords);
  bool pickEntity(CPoint device, CQdrDbEntity*& entity, CQdrGePoint2d* pickPoint);
  bool startOfMeasure(int& prompt, const CQdrGePoint2d* from, CQdrGePoint2d& start);
  double measuredDistance(int prompt, const CQdrGePoint2d& start, CQdrGePoint2d& end);
  void keepResult(int code, const Return_Struct& result);

  std::vector<CQdrDbEntityTracker*> m_trackers;
  std::set<CQdrDbEntity*> m_trackedEntities;
  std::vector<CQdrDbEntityTracker*> m_graveyard;
  bool m_blipShown = false;
  int m_blipKind = 0;
  CQdrGePoint2d m_blipPoint;
  int m_clickModifier = 0;
  CString m_inputText;
  HCURSOR m_selCursor = nullptr;
  HCURSOR m_crossCursor = nullptr;
  CQdrPromptHandler* m_promptHandler = nullptr;
  CWnd* m_msgWindow = nullptr;
  CWnd* m_dispWindow = nullptr;
  CQdrDbDatabase* m_database = nullptr;
  Return_Struct m_lastResult;
  std::wstring m_typedText;
  CQdrDbEntity* m_lastEntity = nullptr;
  CQdrGePoint2d m_arcFirst;  ///< start or centre of the arc being drawn
  int m_currentPrompt = 0;
  CWnd* m_logWindow = nullptr;
  CString m_logText;
  qdr::CommandNames m_commandNames;
  int m_commandCount = 0;
  unsigned long m_lastCommand = 0;
  int m_depth = 0;
  unsigned long m_inputsEnded = 0;
  std::vector<qdr::InputLoop*> m_inputs;
  std::vector<qdr::HeldEntities*> m_held;
  bool m_cancelRequested = false;
  bool m_quitting = false;
};
