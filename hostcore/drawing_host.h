#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "geometry/point2d.h"
#include "hostcore/backing_store.h"
#include "hostcore/host_answer.h"
#include "interaction/command_id.h"
#include "interaction/prompt_handler.h"
#include "platform/export.h"
#include "platform/window.h"

class CQdrCommandHandler;
class CQdrDbDatabase;
class CQdrDbDisplayTableRecord;
class CQdrDbEntity;

namespace qdr {

class DrawingView;

/// What a host starts with.
struct HostOptions {
  std::wstring promptFile;  ///< empty for the built-in prompts
  CSize viewSize{800, 600};
  COLORREF background = 0;
  bool keepsBackups = false;  ///< a save first copies the earlier file to one of extension "bak"
};

/// The program around drawings, without widgets: windows, start-up, routing of messages, commands,
/// painting, opening and saving.
///
/// Several drawings may be open. One is active: the windows, the commands and _gpDatabase are its.
/// The others keep their undo log, window and selection until they are activated. The windows are
/// models. A desktop or a script binds peers to them, sends what happens as
/// messages to the view, and shows the backing store. While a command runs (`isBusy`) the host
/// refuses everything that would change the drawing under it. Calls into the kernel that throw end
/// in a message box.
class QDR_API DrawingHost {
 public:
  /// Takes the prompts, makes an empty drawing and binds it to the windows.
  explicit DrawingHost(const HostOptions& options = {});
  /// No command may be running.
  ~DrawingHost();
  DrawingHost(const DrawingHost&) = delete;
  DrawingHost& operator=(const DrawingHost&) = delete;

  // Windows. Peers may be bound at any time; viewResized tells of the first size of the view.
  CFrameWnd& frame() { return m_frame; }
  CView& view();
  CEditCmd& inputLine() { return m_inputLine; }
  CEdit& log() { return m_log; }
  CStatic& statusPane() { return m_statusPane; }
  BackingStore& screen() { return m_screen; }

  // The active drawing; another one after newDrawing, open and whatever activates one.
  CQdrDbDatabase& database() { return *m_drawing->database; }
  CQdrCommandHandler& handler();
  CQdrDbDisplayTableRecord& display();
  bool isBusy();

  // Messages.

  /// One message of the loop of the program.
  void handle(const MSG& message);
  /// The loop itself, until the message queue says that the program ends.
  void run();

  // Commands by their number, as in the command file: 40000 and the command, 40190 and the kind of
  // a dimension, 40101 undo, 40102 redo, 40110 to 40117 the view.

  /// Runs a command as a menu does, and keeps it for repetition. False when it is refused or there
  /// is none of that number.
  bool runCommand(unsigned number);
  /// Mode word for the next command that is run.
  void setNextOption(unsigned long option) { m_nextOption = option; }
  HostAnswer undo();
  HostAnswer redo();
  /// Ends what is busy as Esc does, one input at each call.
  void requestCancel();

  // View.

  /// Shows the world between two corners.
  HostAnswer showWindow(const CQdrGePoint2d& min, const CQdrGePoint2d& max);
  /// Shows all that is visible with a small margin; the limits of the drawing when it is empty.
  HostAnswer showExtents();
  /// Scales the view about a pixel, below 1 to see less and larger, as a wheel does; also while a
  /// command runs.
  void zoomAt(CPoint point, double scale);
  void repaint();
  /// The client area of the view has another size.
  void viewResized();

  // Files.

  HostAnswer newDrawing();
  /// On a fault the present drawing stays.
  HostAnswer open(const std::wstring& path);
  /// On a fault the earlier file stays, and the drawing counts as unsaved. In the file circles and
  /// lines stand for cobwebs, which one message for each drawing says.
  HostAnswer save(const std::wstring& path);
  bool isModified() const { return m_drawing->modified; }
  /// To be called after a change that did not come through the host.
  void setModified() { m_drawing->modified = true; }
  /// Where the drawing was opened or saved last; empty for a new one.
  const std::wstring& path() const { return m_drawing->path; }

  // Drawings beside one another, numbered from 0 in the order in which they were opened.

  std::size_t drawingCount() const { return m_drawings.size(); }
  std::size_t activeDrawing() const;
  bool isModified(std::size_t drawing) const { return m_drawings.at(drawing)->modified; }
  const std::wstring& path(std::size_t drawing) const { return m_drawings.at(drawing)->path; }
  /// An empty drawing, and one of a file, beside those that are open; active from here on.
  HostAnswer addDrawing();
  HostAnswer openBeside(const std::wstring& path);
  HostAnswer activate(std::size_t drawing);
  /// Closes a drawing, saved or not; an empty one takes the place of the last. Of several the one
  /// before it becomes active when it was.
  HostAnswer closeDrawing(std::size_t drawing);

  /// Text that an input method has committed.
  void compositionChanged(WPARAM wParam, LPARAM lParam);

 private:
  friend class DrawingView;

  struct OwnCommand;
  static const OwnCommand kOwnCommands[];

  // Events of the view.
  void onPaint();
  bool onCommand(unsigned number);
  void onKey(unsigned key, unsigned repeats, unsigned flags);
  void onCharacter(unsigned character, unsigned repeats, unsigned flags);
  void onLeftDown(CPoint point);
  void onRightDown(CPoint point);
  bool onSetCursor(unsigned hitTest);
  void onCoordinate(WPARAM wParam, LPARAM lParam);
  void onPropertyChosen(WPARAM kind, LPARAM data);

  // What belongs to a drawing and not to the program.
  struct OpenDrawing {
    std::unique_ptr<CQdrDbDatabase> database;
    std::wstring path;
    bool modified = false;
    bool toldOfStandIns = false;
  };

  bool guarded(const std::function<void()>& call);
  std::unique_ptr<OpenDrawing> freshDrawing();
  std::unique_ptr<OpenDrawing> loadedDrawing(const std::wstring& path, HostAnswer& answer);
  void bindActive();
  void unbindActive();
  void show(OpenDrawing& drawing);
  void showBeside(std::unique_ptr<OpenDrawing> drawing);
  void showInstead(std::unique_ptr<OpenDrawing> drawing);
  void destroy(std::unique_ptr<OpenDrawing> drawing);
  void keepBackup(const std::wstring& path);

  bool runKernelCommand(unsigned number);
  void repeatDrawing(QdrDb::CommandID id, unsigned long option);
  void addMade(CQdrDbEntity& entity);
  void closeLine(unsigned number);
  bool isOnGrip(CPoint point);
  std::size_t steps();
  void dropGripsOfErased();
  HostAnswer playLog(bool redo);

  void zoomIn();
  void zoomOut();
  void zoomPrevious();
  void zoomExtents();
  void zoomAll();
  void zoomByWindow() { trackView(L'W'); }
  void pan() { trackView(L'P'); }
  void panLive() { trackView(L'R'); }
  void trackView(wchar_t mode);
  void undoStep();
  void redoStep();

  std::unique_ptr<CQdrPromptHandler> m_prompts;
  CFrameWnd m_frame;
  std::unique_ptr<DrawingView> m_view;
  CEditCmd m_inputLine;
  CEdit m_log;
  CStatic m_statusPane;
  BackingStore m_screen;
  std::vector<std::unique_ptr<OpenDrawing>> m_drawings;
  OpenDrawing* m_drawing = nullptr;  ///< the active one, never null once it stands
  unsigned long m_nextOption = 0;
  bool m_keepsBackups;
};

}  // namespace qdr
