#pragma once

#include <cstdint>

#include "database/referred_record.h"
#include "platform/export.h"
#include "platform/wide_string.h"

/// How text is drawn: through an outline font of the platform, or through vector font files, one
/// for normal and one for double-byte characters. The files themselves say whether they have a
/// vertical form; they are looked into when a file name is set, not when a drawing is read.
class QDR_API CQdrDbTextStyleTableRecord : public CQdrDbReferredRecord {
 public:
  enum StyleFlag : std::uint8_t {
    eVertical = 0x01,
    eMirrorX = 0x02,
    eMirrorY = 0x04,
    eTrueType = 0x08,
    eVerticalFont = 0x10,
  };

  explicit CQdrDbTextStyleTableRecord(CQdrDbDatabase* database);

  /// Copies everything but the referring entities. For a record outside a table.
  CQdrDbTextStyleTableRecord& operator=(const CQdrDbTextStyleTableRecord& source);

  bool isVertical() const { return has(eVertical); }
  bool isMirrorX() const { return has(eMirrorX); }
  bool isMirrorY() const { return has(eMirrorY); }
  bool isTTF() const { return has(eTrueType); }

  /// One of the font files has a vertical form.
  bool isVerticalFont() const { return has(eVerticalFont); }

  /// A style whose fonts have no vertical form stays horizontal.
  void setIsVertical(bool vertical) { setFlag(eVertical, vertical && isVerticalFont()); }
  void setMirrorX(bool mirror) { setFlag(eMirrorX, mirror); }
  void setMirrorY(bool mirror) { setFlag(eMirrorY, mirror); }
  void setIsTTF(bool trueType) { setFlag(eTrueType, trueType); }
  void resetFlag() { m_flags = 0; }

  // The defaults of all four are 0; a text takes no width factor of 0 over.
  double textSize() const { return m_textSize; }
  double widthFactor() const { return m_widthFactor; }
  double obliquingAngle() const { return m_obliquingAngle; }
  double priorSize() const { return m_priorSize; }  ///< used last
  void setTextSize(double size) { m_textSize = size; }
  void setWidthFactor(double factor) { m_widthFactor = factor; }
  void setObliquingAngle(double angle) { m_obliquingAngle = angle; }
  void setPriorSize(double size) { m_priorSize = size; }

  // Font files, without folder and extension, cut at 80 characters. Set the normal font first: it
  // sets or clears the mark of a vertical font, the big font only sets it.
  const wchar_t* fileName() const { return m_fileName; }
  const wchar_t* bigFileName() const { return m_bigFileName; }
  void setFileName(const wchar_t* name);
  void setBigFileName(const wchar_t* name);

  /// Whether the file of this name in the font folder ends its description with the mode byte of a
  /// vertical font. False for a missing file; a short or foreign one gives any answer.
  bool isNormalVertical(const wchar_t* name) const;
  bool isBigVertical(const wchar_t* name) const;

  /// The outline font. `face` is a buffer of at least kNameSize characters. False, and the outputs
  /// stay, for a style that has none.
  bool font(wchar_t*& face, bool& bold, bool& italic, int& charset, int& pitchAndFamily) const;

  /// Makes this a style of an outline font; the face is cut at 80 characters.
  void setFont(const wchar_t* face, bool bold, bool italic, int charset, int pitchAndFamily);

  void save() override;
  void read() override;

 private:
  template <class Stream>
  void fields(Stream& stream);
  bool has(StyleFlag flag) const { return (m_flags & flag) != 0; }
  void setFlag(StyleFlag flag, bool on);

  std::uint8_t m_flags = 0;
  double m_textSize = 0.0;
  double m_widthFactor = 0.0;
  double m_obliquingAngle = 0.0;
  double m_priorSize = 0.0;
  wchar_t m_fileName[kNameSize] = {};
  wchar_t m_bigFileName[kNameSize] = {};
  wchar_t m_face[kNameSize] = {};
  std::uint8_t m_bold = 0;
  std::uint8_t m_italic = 0;
  std::int32_t m_charset = 0;
  std::int32_t m_pitchAndFamily = 0;
};

/// The folder "font" beside the host's data files, without a separator at its end.
QDR_API CString _GetVectorFontPath();
