#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "database/referred_record.h"
#include "platform/export.h"

/// A dash pattern: strokes are positive, gaps negative, in drawing units. Fewer than two dashes
/// draw solid.
class QDR_API CQdrDbLTypeTableRecord : public CQdrDbLayerReferredRecord {
 public:
  explicit CQdrDbLTypeTableRecord(CQdrDbDatabase* database);

  /// Copies name, description and pattern. For a record outside a table.
  CQdrDbLTypeTableRecord& operator=(const CQdrDbLTypeTableRecord& source);

  const std::vector<double>& getDashes() const { return m_dashes; }

  /// Takes a pattern; its length is unknown then, and the device pattern has to be made anew.
  void setDashes(const std::vector<double>& dashes);

  /// Number of dashes.
  int getDashCount() const { return static_cast<int>(m_dashes.size()); }

  /// The dash at an index; 0 outside.
  double getDashAt(int index) const;

  /// Length of the pattern. An unknown one, 0, becomes the sum of all strokes and gaps.
  double getPatternLength();
  void setPatternLength(double length) { m_patternLength = length; }

  const wchar_t* getDescription() const { return m_description; }

  /// Cut at 80 characters.
  void setDescription(const wchar_t* description);

  /// Lengths for a device pen: each dash times the linetype scale of the drawing times `scale`,
  /// rounded, at most 32 of them, 0 behind. Computed once: a later call with another scale answers
  /// the same. Null for fewer than two dashes.
  const std::uint32_t* getDevicePattern(double scale);

  void save() override;
  void read() override;

 private:
  template <class Stream>
  void fields(Stream& stream);

  std::vector<double> m_dashes;
  std::array<std::uint32_t, 32> m_devicePattern{};
  wchar_t m_description[kNameSize] = {};
  double m_patternLength = 0.0;
};
