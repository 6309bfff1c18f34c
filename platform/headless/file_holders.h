// SPDX-License-Identifier: MIT
// The virus scanner of the virtual desktop: it holds each file for a while after it was written.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace taviro::platform::headless {

class FileHolders {
  public:
    uint32_t nHeldForMs = 0;  ///< 0: there is none

    /// Whether it holds the file at this moment.
    [[nodiscard]] bool Holds(const std::wstring& strPath, uint32_t nNow) const;
    /// Comes to a file that was written.
    void Take(const std::wstring& strPath, uint32_t nNow);

  private:
    std::map<std::wstring, uint32_t> m_Taken;  // when, by path in lower case
};

}  // namespace taviro::platform::headless
