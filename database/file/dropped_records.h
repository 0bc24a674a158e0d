#pragma once

#include <cstdint>

#include "database/file/field_stream.h"

class CQdrDbDatabase;

namespace qdr {

/// Reads a count and that many records, which nobody keeps: the file goes on behind them.
template <class Record>
void readAndDrop(CQdrDbDatabase* database, CFile* file) {
  std::uint16_t count = 0;
  FieldReader(file).number(count);
  for (; count > 0 && file->bytesLeft() > 0; --count) {
    Record record(database);
    record.read();
  }
}

}  // namespace qdr
