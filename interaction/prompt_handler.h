#pragma once

#include <vector>

#include "platform/export.h"
#include "platform/wide_string.h"

namespace QdrDb {

/// Row of the message file that holds the text of a prompt.
enum PromptId : int {
  ePromptNone = 0,
  ePromptEdgeStart = 1,
  ePromptEdgeEnd = 2,
  ePromptStartPoint = 3,
  ePromptCentre = 4,
  ePromptNextPoint = 5,
  ePromptArcSecondPoint = 6,
  ePromptStartAngle = 7,
  ePromptEndAngle = 8,
  ePromptRadius = 9,
  ePromptFirstPoint = 10,
  ePromptSecondPoint = 11,
  ePromptFirstCorner = 12,
  ePromptOppositeCorner = 13,
  ePromptSecondAxis = 14,
  ePromptSides = 15,
  ePromptCentreOrEdge = 16,
  ePromptInsideOrOutside = 17,
  ePromptLineSegment = 18,
  ePromptTangentSegment = 19,
  ePromptThreePointSegment = 20,
  ePromptArcStartOrCentre = 21,
  ePromptArcStart = 22,
  ePromptTextStart = 23,
  ePromptText = 29,
  ePromptSelect = 35,
  ePromptTrimBoundary = 36,
  ePromptExtendBoundary = 37,
  ePromptBasePoint = 38,
  ePromptRotation = 39,
  ePromptRotateBand = 40,
  ePromptScaleBand = 42,
  ePromptKeepSource = 47,
  ePromptInvalidAnswer = 72,
  ePromptUnknownCommand = 73
};

}  // namespace QdrDb

/// The texts of all prompts, by row of a message file. Row 0 is empty.
class QDR_API CQdrPromptHandler {
 public:
  /// Kinds of answer that a prompt seeks.
  enum Kind : int { kNothing = 0, kReal = 1, kText = 2, kPoint = 3, kInteger = 4 };

  /// Loads the message file at `path`; an empty path makes an empty handler.
  explicit CQdrPromptHandler(const CString& path);
  virtual ~CQdrPromptHandler() = default;

  /// Puts row 0 in place and adds the rows of a file behind it. A file that cannot be opened is
  /// told in a message box and leaves row 0 alone. Returns the number of rows, row 0 included.
  int LoadPrompt(const CString& path);

  /// The text of a row. A row that does not exist raises the platform's invalid-argument exception:
  /// such a number is a fault of the program.
  CString getPrompt(int id) const;

  /// What kind of answer a prompt seeks, one of Kind. A prompt of kind 0 takes picks and keywords
  /// only; what is typed at it counts as invalid.
  int getPromptKind(QdrDb::PromptId id) const;

  /// Rows loaded at construction, row 0 included; 0 for an empty handler.
  int promptCount() const { return m_promptCount; }

 private:
  std::vector<CString> m_prompts;
  CString m_emptyRow;
  int m_promptCount = 0;
};

/// The one prompt handler of the process. The host sets it before it makes a drawing, since each
/// command handler takes it over at construction. May be null.
extern QDR_API CQdrPromptHandler* _hPROMPT;
