// The library's status codes in the program's messages.
#pragma once

#include <cstdint>
#include <string>

#include "polyarc/records.h"

namespace polyarc_tool {

// "what it means (status N)", in the library's own words.
inline std::string StatusText(uint16_t status) {
  return std::string(PaStatusText(status)) + " (status " + std::to_string(status) + ")";
}

}  // namespace polyarc_tool
