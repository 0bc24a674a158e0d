#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

#include "geometry/xy.h"
#include "platform/export.h"
#include "platform/utf16.h"

namespace qdr {

/// A text field of a fixed block: N UTF-16 units, ended by the first 0 or by the end of the field.
/// A file may bring any units, so readers never go past the field.
template <std::size_t N>
struct U16Field {
  char16_t units[N] = {};

  U16Field() = default;
  U16Field(const wchar_t* text) { encodeUnits(text, units, N); }

  /// Cut at N - 1 units, never inside a surrogate pair; zeros behind. Null is the empty text.
  U16Field& operator=(const wchar_t* text) {
    encodeUnits(text, units, N);
    return *this;
  }

  bool isEmpty() const { return units[0] == 0; }

  std::wstring text() const {
    wchar_t buffer[N + 1];
    decodeUnits(units, N, buffer, N + 1);
    return buffer;
  }
};

/// Characters of a name with its terminator, in memory and in a file.
inline constexpr std::size_t kNameUnits = 81;

/// The thumbnail: bitmap header, 256 colours and the rows, bottom row first, then zeros.
inline constexpr std::size_t kThumbnailBytes = 20280;
inline constexpr int kThumbnailWidth = 160;
inline constexpr int kThumbnailHeight = 120;

}  // namespace qdr

/// First block of a drawing file, transferred whole. The name of the application and the version
/// are written and never compared.
struct QdrDbFileHeader_tag {
  qdr::U16Field<12> applicationName = L"K-Ova";
  qdr::U16Field<33> computerName;  ///< of the first save; stays for the life of the file
  qdr::U16Field<33> userName;      ///< of the first save
  qdr::U16Field<33> title;         ///< file name without folder and extension
  qdr::U16Field<8> version = L"1.001a";
  qdr::U16Field<12> date;     ///< local date of the last save, "2026-01-31"
  qdr::U16Field<256> folder;  ///< of the last save, without a separator at its end
  qdr::U16Field<256> blockDescription;
  std::uint8_t thumbnail[qdr::kThumbnailBytes] = {};
};

/// Second block: the settings of a drawing, which entities, trackers and commands reach directly.
/// Reserved bytes survive a read and a save.
struct QdrDbDrawingVars_tag {
  std::uint8_t snapOrtho = 0;
  std::uint8_t gridDivisions = 1;
  std::uint8_t snapGrip = 0;
  std::uint8_t gridVisible = 0;
  std::uint8_t polarReadout = 0;  ///< coordinates shown as distance and angle
  std::uint8_t snapGrid = 0;
  std::uint8_t reserved6 = 0;
  std::uint8_t reserved7 = 4;
  std::uint8_t reserved8 = 0;
  std::uint8_t pointMode = 3;
  std::uint8_t pointSize = 5;
  std::uint8_t pickBoxSize = 5;  ///< device units
  std::uint8_t snapIntersection = 0;
  std::uint8_t snapCenter = 0;
  std::uint8_t snapNearest = 0;
  std::uint8_t snapGridPoint = 0;
  std::uint8_t reserved16[4] = {};
  std::int16_t currentSpace = 0;  ///< 0 model space, 1 paper space
  std::uint8_t reserved22[2] = {};
  double linetypeScale = 1.0;
  double textHeight = 2.0;
  double gridSpacing = 1.0;
  double reserved48 = 0.0;
  double reserved56 = 1.0;
  double zoomStep = 0.2;
  double dragScaleUnit = 100.0;
  QdrXY basePoint;
  QdrXY limitsMin;
  QdrXY limitsMax{420.0, 297.0};
  QdrXY extentMin;
  QdrXY extentMax;
  QdrXY displayMin;
  QdrXY displayMax;
  std::int16_t currentColorIndex = 256;  ///< refreshed on save, as the three names below
  std::uint8_t reserved194[2] = {};
  std::int32_t currentLineWeight = -1;
  qdr::U16Field<81> currentLayer = L"0";
  qdr::U16Field<81> currentLinetype = L"ByLayer";

  /// The record is called "STANDARD"; the search for a name finds it in upper case.
  qdr::U16Field<81> currentTextStyle = L"standard";
  std::uint8_t reserved686[2] = {};
  QdrXY paperMin;
  QdrXY paperMax{420.0, 297.0};
  std::uint8_t reserved720[480] = {};
};

/// Third block: the settings that dimensions read at every rebuild. The reserved ones hold values
/// that nothing reads.
struct QdrDbDimVars_tag {
  qdr::U16Field<32> arrow = L"arrow";  ///< a word for a built-in arrow, or a block
  qdr::U16Field<32> textStyle = L"standard";
  std::uint16_t angleDecimals = 2;
  std::uint16_t stripAngleZeros = 1;
  std::uint16_t lineColorIndex = 256;  ///< dimension lines, arrows and leader lines
  std::uint16_t extensionColorIndex = 256;
  std::uint16_t textColorIndex = 256;
  std::uint16_t lengthDecimals = 2;
  std::uint16_t reserved140 = 0;
  std::uint16_t reserved142 = 1;
  std::uint16_t stripLengthZeros = 1;
  std::uint8_t reserved146[6] = {};
  double arrowSize = 2.0;
  double reserved160 = 2.0;
  double reserved168 = 5.0;
  double reserved176 = 7.0;
  double extensionOvershoot = 1.0;  ///< of the extension line past the dimension line
  double reserved192 = 0.5;
  double textGap = 0.5;  ///< between dimension line and text
  double reserved208 = 0.005;
  double reserved216 = 1.0;
  double textHeight = 1.6;
};

namespace qdr {

inline constexpr std::size_t kHeaderBytes = 21566;
inline constexpr std::size_t kVarsBytes = 1200;
inline constexpr std::size_t kDimVarsBytes = 232;

// The three structs are file images: no padding, and a little-endian machine.
#define QDR_AT(type, field, position) static_assert(offsetof(type, field) == (position))

static_assert(sizeof(QdrDbFileHeader_tag) == kHeaderBytes);
static_assert(std::is_trivially_copyable_v<QdrDbFileHeader_tag>);
static_assert(std::is_standard_layout_v<QdrDbFileHeader_tag>);
QDR_AT(QdrDbFileHeader_tag, applicationName, 0);
QDR_AT(QdrDbFileHeader_tag, computerName, 24);
QDR_AT(QdrDbFileHeader_tag, userName, 90);
QDR_AT(QdrDbFileHeader_tag, title, 156);
QDR_AT(QdrDbFileHeader_tag, version, 222);
QDR_AT(QdrDbFileHeader_tag, date, 238);
QDR_AT(QdrDbFileHeader_tag, folder, 262);
QDR_AT(QdrDbFileHeader_tag, blockDescription, 774);
QDR_AT(QdrDbFileHeader_tag, thumbnail, 1286);

static_assert(sizeof(QdrDbDrawingVars_tag) == kVarsBytes);
static_assert(std::is_trivially_copyable_v<QdrDbDrawingVars_tag>);
static_assert(std::is_standard_layout_v<QdrDbDrawingVars_tag>);
QDR_AT(QdrDbDrawingVars_tag, snapOrtho, 0);
QDR_AT(QdrDbDrawingVars_tag, gridDivisions, 1);
QDR_AT(QdrDbDrawingVars_tag, snapGrip, 2);
QDR_AT(QdrDbDrawingVars_tag, gridVisible, 3);
QDR_AT(QdrDbDrawingVars_tag, polarReadout, 4);
QDR_AT(QdrDbDrawingVars_tag, snapGrid, 5);
QDR_AT(QdrDbDrawingVars_tag, reserved7, 7);
QDR_AT(QdrDbDrawingVars_tag, pointMode, 9);
QDR_AT(QdrDbDrawingVars_tag, pointSize, 10);
QDR_AT(QdrDbDrawingVars_tag, pickBoxSize, 11);
QDR_AT(QdrDbDrawingVars_tag, snapIntersection, 12);
QDR_AT(QdrDbDrawingVars_tag, snapCenter, 13);
QDR_AT(QdrDbDrawingVars_tag, snapNearest, 14);
QDR_AT(QdrDbDrawingVars_tag, snapGridPoint, 15);
QDR_AT(QdrDbDrawingVars_tag, currentSpace, 20);
QDR_AT(QdrDbDrawingVars_tag, linetypeScale, 24);
QDR_AT(QdrDbDrawingVars_tag, textHeight, 32);
QDR_AT(QdrDbDrawingVars_tag, gridSpacing, 40);
QDR_AT(QdrDbDrawingVars_tag, reserved48, 48);
QDR_AT(QdrDbDrawingVars_tag, reserved56, 56);
QDR_AT(QdrDbDrawingVars_tag, zoomStep, 64);
QDR_AT(QdrDbDrawingVars_tag, dragScaleUnit, 72);
QDR_AT(QdrDbDrawingVars_tag, basePoint, 80);
QDR_AT(QdrDbDrawingVars_tag, limitsMin, 96);
QDR_AT(QdrDbDrawingVars_tag, limitsMax, 112);
QDR_AT(QdrDbDrawingVars_tag, extentMin, 128);
QDR_AT(QdrDbDrawingVars_tag, extentMax, 144);
QDR_AT(QdrDbDrawingVars_tag, displayMin, 160);
QDR_AT(QdrDbDrawingVars_tag, displayMax, 176);
QDR_AT(QdrDbDrawingVars_tag, currentColorIndex, 192);
QDR_AT(QdrDbDrawingVars_tag, currentLineWeight, 196);
QDR_AT(QdrDbDrawingVars_tag, currentLayer, 200);
QDR_AT(QdrDbDrawingVars_tag, currentLinetype, 362);
QDR_AT(QdrDbDrawingVars_tag, currentTextStyle, 524);
QDR_AT(QdrDbDrawingVars_tag, paperMin, 688);
QDR_AT(QdrDbDrawingVars_tag, paperMax, 704);
QDR_AT(QdrDbDrawingVars_tag, reserved720, 720);

static_assert(sizeof(QdrDbDimVars_tag) == kDimVarsBytes);
static_assert(std::is_trivially_copyable_v<QdrDbDimVars_tag>);
static_assert(std::is_standard_layout_v<QdrDbDimVars_tag>);
QDR_AT(QdrDbDimVars_tag, arrow, 0);
QDR_AT(QdrDbDimVars_tag, textStyle, 64);
QDR_AT(QdrDbDimVars_tag, angleDecimals, 128);
QDR_AT(QdrDbDimVars_tag, stripAngleZeros, 130);
QDR_AT(QdrDbDimVars_tag, lineColorIndex, 132);
QDR_AT(QdrDbDimVars_tag, extensionColorIndex, 134);
QDR_AT(QdrDbDimVars_tag, textColorIndex, 136);
QDR_AT(QdrDbDimVars_tag, lengthDecimals, 138);
QDR_AT(QdrDbDimVars_tag, reserved140, 140);
QDR_AT(QdrDbDimVars_tag, reserved142, 142);
QDR_AT(QdrDbDimVars_tag, stripLengthZeros, 144);
QDR_AT(QdrDbDimVars_tag, arrowSize, 152);
QDR_AT(QdrDbDimVars_tag, extensionOvershoot, 184);
QDR_AT(QdrDbDimVars_tag, reserved192, 192);
QDR_AT(QdrDbDimVars_tag, textGap, 200);
QDR_AT(QdrDbDimVars_tag, reserved208, 208);
QDR_AT(QdrDbDimVars_tag, reserved216, 216);
QDR_AT(QdrDbDimVars_tag, textHeight, 224);

#undef QDR_AT

}  // namespace qdr
