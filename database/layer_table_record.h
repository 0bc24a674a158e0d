#pragma once

#include <cstdint>

#include "database/line_weight.h"
#include "database/referred_record.h"
#include "platform/export.h"

/// A named layer: what its entities look like where they say "ByLayer", whether they are shown and
/// whether they may be edited. Knows its colour and its linetype, either of which may be null, and
/// is known to them.
class QDR_API CQdrDbLayerTableRecord : public CQdrDbReferredRecord {
 public:
  enum LayerStatus : std::uint8_t { eOff = 0x01, eLocked = 0x02 };

  explicit CQdrDbLayerTableRecord(CQdrDbDatabase* database);

  /// Copies name, status and line weight; colour and linetype stay, as the source may stand in
  /// another drawing. For a record outside a table.
  CQdrDbLayerTableRecord& operator=(const CQdrDbLayerTableRecord& source);

  using CQdrDbReferredRecord::setName;

  /// As the base; layer "0" keeps its name.
  void setName(wchar_t* name) override;

  bool isOff() const { return (m_layerStatus & eOff) != 0; }
  bool isLocked() const { return (m_layerStatus & eLocked) != 0; }
  void setIsOff(bool off) { setBit(eOff, off); }
  void setIsLocked(bool locked) { setBit(eLocked, locked); }
  void resetStatus() { m_layerStatus = 0; }

  /// The byte that holds the bits; a second byte is only kept for the file.
  std::uint8_t status() const { return static_cast<std::uint8_t>(m_layerStatus); }
  void setStatus(std::uint8_t status);

  // The setters keep the referring layers of the record left and of the record taken.
  CQdrDbObjectId getColorId() const { return m_colorId; }
  CQdrDbObjectId getLinetypeId() const { return m_linetypeId; }
  void setColorId(const CQdrDbObjectId& id);
  void setLinetypeId(const CQdrDbObjectId& id);

  /// The value of the colour record; white without one.
  unsigned long getColorValue() const;

  QdrDb::LineWeight getLineWeight() const { return m_lineWeight; }
  void setLineWeight(QdrDb::LineWeight weight);

  /// Colour and linetype bind by number; one that the file does not name stays null.
  void save() override;
  void read() override;

 private:
  template <class Stream>
  void fields(Stream& stream);
  void setBit(LayerStatus bit, bool on);

  std::uint16_t m_layerStatus = 0;
  CQdrDbObjectId m_colorId;
  CQdrDbObjectId m_linetypeId;
  QdrDb::LineWeight m_lineWeight = QdrDb::eWeightZero;
};
