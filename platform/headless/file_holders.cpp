// SPDX-License-Identifier: MIT
#include "platform/headless/file_holders.h"

#include "platform/text.h"

namespace taviro::platform::headless {

bool FileHolders::Holds(const std::wstring& strPath, uint32_t nNow) const {
    const auto itTaken = m_Taken.find(ToLower(strPath));
    return itTaken != m_Taken.end() && nNow - itTaken->second < nHeldForMs;
}

void FileHolders::Take(const std::wstring& strPath, uint32_t nNow) {
    if (nHeldForMs != 0) m_Taken[ToLower(strPath)] = nNow;
}

}  // namespace taviro::platform::headless
