// SPDX-License-Identifier: MIT
// Any bytes as a text in key-sequence notation: it is sent to its end, every key that went down
// comes up again, and a second sending does exactly the same.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "actions/key_sequence.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize);

namespace taviro {
namespace {

using platform::headless::Desktop;

// Long texts and high counts are slow and find nothing that short ones do not.
constexpr size_t LONGEST_TEXT = 512;
constexpr int LONGEST_COUNT = 2;  // digits

bool HasHighCount(std::string_view strText) {
    int nRun = 0;
    return std::any_of(strText.begin(), strText.end(), [&](char n) {
        nRun = n >= '0' && n <= '9' ? nRun + 1 : 0;
        return nRun > LONGEST_COUNT;
    });
}

std::vector<std::string> Send(const std::wstring& strText) {
    Desktop.Keyboard = {};
    Desktop.TakeEffects();
    vbSendKey(strText);
    if (!Desktop.KeysDown().empty()) std::abort();
    return Desktop.TakeEffects();
}

}  // namespace
}  // namespace taviro

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    using namespace taviro;
    const std::string strBytes(pData, pData + nSize);
    if (nSize > LONGEST_TEXT || HasHighCount(strBytes)) return 0;
    const std::wstring strText = platform::FromAnsi(strBytes);
    const auto First = Send(strText);
    if (Send(strText) != First) std::abort();
    // Downs and ups come in pairs.
    if (First.size() % 2 != 0) std::abort();
    return 0;
}
