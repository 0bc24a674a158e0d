#pragma once

#include <cstdint>

#include "platform/export.h"

/// One tagged value: the answer of a tracker, and a node of the extended data of an entity.
///
/// As an answer `next` is null and nothing is owned; a text belongs to the tracker. As extended
/// data the node belongs to the entity and comes from `new`, the text of a kText node from
/// `new wchar_t[]`. Plain, copied member by member.
struct QDR_API Return_Struct {
  /// Which value is meant; nodes of any other code hold raw bytes of the host.
  enum Code : std::int32_t { kNumber = 3004, kPoint = 3005, kKeyword = 3006, kText = 3007 };

  union Value {
    unsigned char raw[24];
    double number[3];  ///< [0] the number, or x; [1] y
    wchar_t keyword;   ///< upper case
    wchar_t* text;     ///< zero-terminated, may be null
  };

  std::int32_t code = 0;
  Return_Struct* next = nullptr;
  Value value = {.raw = {}};
};
