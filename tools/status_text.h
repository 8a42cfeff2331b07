// Plain words for the library's status codes in the program's messages.
#pragma once

#include <cstdint>
#include <string>

#include "polyarc/records.h"

namespace polyarc_tool {

// "what it means (status N)".
inline std::string StatusText(uint16_t status) {
  const char *what = "failed";
  switch (status) {
    case PA_OK:
      what = "success";
      break;
    case PA_NO_RECORD:
      what = "no record could be had";
      break;
    case PA_NO_MEMORY:
      what = "out of memory, or an impossible construction";
      break;
    case PA_ZERO_LENGTH:
      what = "zero length";
      break;
    case PA_ZERO_RADIUS:
      what = "radius below the tolerance";
      break;
    case PA_INVALID:
      what = "invalid geometry";
      break;
    case PA_DEGENERATE:
      what = "degenerate geometry";
      break;
    default:
      break;
  }
  return std::string(what) + " (status " + std::to_string(status) + ")";
}

}  // namespace polyarc_tool
