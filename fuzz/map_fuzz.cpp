// SPDX-License-Identifier: MIT
// Any bytes as a map file: reading never fails, and what the writer makes of the grid comes back
// byte for byte.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "maps/map_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    using namespace taviro;
    const std::string_view strBytes(reinterpret_cast<const char*>(pData), nSize);
    CommonMap.Clear();
    ReadMapText(strBytes, CommonMap);
    const std::string strOnce = WriteMapText(CommonMap);
    CommonMap.Clear();
    ReadMapText(strOnce, CommonMap);
    // Trimming can empty a first cell that held blanks only, and so end the map earlier; from the
    // second writing on nothing changes any more.
    const std::string strTwice = WriteMapText(CommonMap);
    CommonMap.Clear();
    ReadMapText(strTwice, CommonMap);
    if (WriteMapText(CommonMap) != strTwice) std::abort();
    return 0;
}
