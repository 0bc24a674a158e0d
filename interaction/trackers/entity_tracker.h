#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "database/entity_access.h"
#include "database/object_id.h"
#include "entities/return_struct.h"
#include "geometry/point2d.h"
#include "geometry/vector2d.h"
#include "interaction/command_id.h"
#include "platform/export.h"
#include "platform/input.h"
#include "platform/points.h"
#include "platform/wide_string.h"

class CDC;
class CQdrCommandHandler;
class CQdrDbDatabase;
class CQdrDbEntity;
class CWnd;
struct tagUndoEditEntity;

/// Handles one entity with the mouse: a rubber line and a working copy follow it.
///
/// In create mode a command builds an entity with it; in edit mode it shows the grips of an entity,
/// and a grip can be dragged or the entity transformed. Everything it draws on the screen is drawn
/// by exclusive-or. Points are logical where not said otherwise. The tracker of a class adds what
/// its shape needs; the base alone is a rubber line.
class QDR_API CQdrDbEntityTracker {
 public:
  enum TrackerType : int {
    eTrackEntity = 0,
    eTrackMulti = 1,
    eTrackArc = 2,
    eTrackBox = 3,
    eTrackCircle = 4,
    eTrackEllipseArc = 5,
    eTrackEllipse = 6,
    eTrackLine = 7,
    eTrackPolyline = 8,
    eTrackRect = 9,
    eTrackSpline = 10,
    eTrackCSpline = 11,
    eTrackText = 12,
    eTrackBlockInsert = 14,
    eTrackSpiral = 15,
    eTrackCobweb = 16,
    eTrackDimension = 17,
    eTrackHatch = 18
  };

  explicit CQdrDbEntityTracker(CWnd* window);
  CQdrDbEntityTracker(CWnd* window, CQdrDbDatabase* database, bool create);
  /// In edit mode the grips of the entity appear at once. A class of its own calls showGrips in its
  /// constructor for that, since its virtual operations are not its own before.
  CQdrDbEntityTracker(CWnd* window, CQdrDbEntity* entity, QdrDb::TransFormOption option,
                      bool create);
  /// For a tracker of several entities, which takes them over through SetMultiEntity in its own
  /// constructor.
  CQdrDbEntityTracker(CWnd* window, std::vector<CQdrDbObjectId>* entities,
                      QdrDb::TransFormOption option);
  /// In edit mode takes the grips off and draws the entity plainly.
  virtual ~CQdrDbEntityTracker();
  CQdrDbEntityTracker(const CQdrDbEntityTracker&) = delete;
  CQdrDbEntityTracker& operator=(const CQdrDbEntityTracker&) = delete;

  /// Draws the boxes of all grips; true when there is one.
  virtual bool DrawBoxis();
  /// Draws entity highlighted and grips; with `redraw` the plain picture goes first.
  virtual void DrawGripBox(bool redraw);
  virtual void UnDrawGripBox();
  // Hooks for the trackers of a host.
  virtual void DrawCurrentMark() {}
  virtual void SetCurrentStitch(int) {}
  virtual void SetMultiEntity(std::vector<CQdrDbObjectId>*) {}
  virtual bool SelectStitchByWin(CPoint) { return false; }
  virtual void UndrawOrigin();
  /// Draws the working copy, and what a class shows beside it.
  virtual void DrawCurrent();
  /// Shows the cursor of the grip under the mouse; its index, -1 for none. 0 outside the client
  /// area (any hit code but 1).
  virtual int SetCursor(CWnd* window, unsigned hitTest);
  /// Rounds the current point to the grid, unless it has snapped to an entity or was set exactly.
  virtual void CheckSnap();
  virtual int TrackMenuHandle(CWnd* window, CPoint point, int handle);
  virtual int TrackHandle(CWnd* window, CPoint point, int handle);
  /// Applies a drag of a grip to the working copy; grip 0 is the whole entity.
  virtual void UpdateEntity(CQdrDbEntity*, int) {}
  virtual void MoveEntity(CQdrDbEntity*) {}
  virtual void RotateEntity(CQdrDbEntity*) {}
  virtual void MirrorEntity(CQdrDbEntity*) {}
  virtual void ScaleEntity(CQdrDbEntity*) {}
  /// Applies the mouse to the entity that a command makes.
  virtual void CheckCreateOption(CQdrDbEntity*, CPoint&) {}
  /// A working copy, null in the base.
  virtual CQdrDbEntity* CopyEntity(CQdrDbEntity*) { return nullptr; }
  /// Commits a drag and records its undo step.
  virtual bool ControlEnd(int) { return false; }

  void SetDefault();
  /// Starts the rubber line; `alsoEnd` puts its end there too.
  void SetStartPoint(const CQdrGePoint2d& worldPoint, bool alsoEnd);
  /// Puts the current point and the end of the rubber line at a point, exactly: it is not rounded
  /// to the grid or to logical units.
  void SetPos(const CQdrGePoint2d& worldPoint);
  CQdrGePoint2d GetPos() const;
  void SetEntity(CQdrDbEntity* entity) { m_entity = entity; }
  CQdrDbEntity* GetEntity() const { return m_entity; }
  /// Upper-case letters, each of which ends the loop with 3006.
  void SetKeyWords(const wchar_t* keywords) { m_keywords = keywords; }
  void SetOption(unsigned option) { m_option = option; }
  unsigned GetOption() const { return m_option; }
  void SetCreateMode(bool create) { m_createMode = create; }
  void SetPrevEntity(CQdrDbEntity* entity) { m_prevEntity = entity; }
  void SetTransOpt(QdrDb::TransFormOption option) { m_transOpt = option; }
  TrackerType TrackType() const { return m_trackerType; }
  CDC* getDC() const { return m_dc; }
  void setDC(CDC* dc) { m_dc = dc; }
  Return_Struct& resBuffer() { return m_result; }
  void SetValidRect(const CRect& rect) { m_validRect = rect; }
  /// True inside the valid rectangle; an empty one counts as everywhere.
  bool IsValidPos(const CPoint& device) const;
  /// The grip whose box holds a device point; -1 for none.
  int HitTest(CPoint device);
  void DrawRubber();
  /// Runs the loop; answers a qdr::InputResult. A hook of the entity follows a result other than 0.
  int Track(CWnd* window, CPoint device);
  int Track(CWnd* window, CPoint device, int handle);
  int TrackMenu(CWnd* window, CPoint device);
  /// Applies the transform in force.
  void TransFormEntity(CQdrDbEntity* entity);
  void clearGripPoints() { m_gripPoints = nullptr; }
  /// A cursor key moves the mouse; true when the message was one.
  bool MoveKeyHandle(const MSG& message);
  /// A key of the loop; a result ends it when m_finished is set.
  int KeyDownHandle(const MSG& message);
  int CharHandle(const MSG& message);

  /// Takes grips and highlighting off the screen and draws the entity plainly.
  void takeGripsOff();
  /// Lets go of entity and device context; nothing is drawn any more.
  void retire();
  /// Lets go of entities that are about to be deleted; the loop of one that was tracked ends.
  void forgetEntities(const qdr::EntitySet& gone);

 protected:
  /// A command of the grip menu that belongs to the class.
  virtual void runOwnCommand(CWnd*, int, unsigned) {}
  void showGrips();
  /// Grips that are marked by a diamond in the place of a box, true by index; those beyond the
  /// answer are boxes.
  virtual std::vector<bool> diamonds() const { return {}; }
  CQdrGePoint2d startWorld() const;
  CQdrGePoint2d endWorld() const;
  CQdrGeVector2d dragVector() const { return endWorld() - startWorld(); }
  /// Length of the drag over the scale unit of the drawing.
  double dragScale() const;
  void drawCurrentEntity();
  void eraseRubber();
  /// Ends a pick: blip off, grid, rubber line off, last point.
  void settlePoint();
  /// False while a drag has not left the place where it began.
  bool isShapeMoved() const { return m_shapeMoved; }

  TrackerType m_trackerType = eTrackEntity;
  unsigned m_endMessage = WM_LBUTTONDOWN;
  CQdrCommandHandler* m_handler = nullptr;
  CQdrDbDatabase* m_db = nullptr;
  CDC* m_dc = nullptr;
  CWnd* m_window = nullptr;
  CQdrDbEntity* m_entity = nullptr;
  CQdrDbEntity* m_currentEntity = nullptr;  ///< working copy of the loop, owned
  CQdrDbEntity* m_prevEntity = nullptr;
  QdrDb::TransFormOption m_transOpt = QdrDb::eTransformNone;
  unsigned m_option = 0;
  bool m_createMode = false;
  bool m_gripsDrawn = false;
  bool m_rubberShown = false;
  bool m_snapped = false;   ///< the current point came from an entity
  bool m_finished = false;  ///< the loop ends
  bool m_keyMoved = false;  ///< cursor keys have placed the point
  CPoint m_rubberStart;
  CPoint m_rubberEnd;
  CPoint m_rubberPrevEnd;  ///< where the rubber line on the screen ends
  CPoint m_currentPoint;
  CQdrGePoint2d m_snapPrev;
  CQdrGePoint2d m_snapOut;

 private:
  int runLoop(int handle);
  int handleMessage(const MSG& message, int handle);
  int onPick(CPoint device, int handle);
  void onMouse(CPoint device, int handle);
  int onKeyDown(const MSG& message, int handle);
  int onCharacter(const MSG& message);
  int onTypedPoint(int handle);
  int endOfEmptyLine();
  int readTyped();
  void runMenuCommand(CWnd* window, CPoint point, int handle, unsigned command);
  void trackTransform(CWnd* window, CPoint point, int handle, QdrDb::TransFormOption option);
  void mirrorAlong(int handle, const CQdrGeVector2d& direction);
  void copyByMenu(CWnd* window, CPoint point);
  void eraseByMenu();
  void recordMenuStep(int operation, const CQdrDbEntity& entity);
  void refreshShape(int handle);
  void commitPoint(int handle);

  std::wstring m_typed;
  Return_Struct m_result;
  CString m_keywords;
  CSize m_gripSize{8, 8};
  COLORREF m_rubberColor = 0x00ffff;
  COLORREF m_gripColor = 0xffff00;
  int m_rubberWidth = 1;
  double m_gripScale = 0.0;
  CRect m_validRect;
  int m_handle = -1;
  bool m_shapeMoved = false;
  std::optional<CQdrGePoint2d> m_exactStart;  ///< of the rubber line, where it is known
  std::optional<CQdrGePoint2d> m_exactEnd;
  CPoint m_lastDevice;
  std::vector<CQdrGePoint2d>* m_gripPoints = nullptr;  ///< the entity's
};
