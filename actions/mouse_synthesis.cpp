// SPDX-License-Identifier: MIT
#include "actions/mouse_synthesis.h"

#include <array>
#include <limits>
#include <optional>

#include "actions/key_action.h"
#include "platform/keys.h"
#include "platform/metrics.h"
#include "platform/pointer.h"
#include "platform/unneeded.h"

namespace taviro {

namespace {

using platform::InputRecord;
using platform::MouseRecord;

// Keeps the mouse acceleration off while it lives, if it was on.
class AccelerationPause {
  public:
    AccelerationPause() {
        // Unknown, the triple stays 0 and the setting is left alone.
        Unneeded(platform::GetMouseAcceleration(m_Saved));
        // Refused, the click may miss; there is nothing better to try.
        if (IsOn()) Unneeded(platform::SetMouseAcceleration({0, 0, 0}));
    }
    AccelerationPause(const AccelerationPause&) = delete;
    AccelerationPause& operator=(const AccelerationPause&) = delete;
    ~AccelerationPause() {
        if (IsOn()) Unneeded(platform::SetMouseAcceleration(m_Saved));
    }

  private:
    bool IsOn() const { return m_Saved[2] != 0; }

    std::array<int32_t, 3> m_Saved{};
};

// Nothing when the distance does not fit 32 bits.
std::optional<int32_t> Distance(int32_t nFrom, int32_t nTo) {
    const int64_t nWide = int64_t{nTo} - nFrom;
    if (nWide < std::numeric_limits<int32_t>::min()) return {};
    if (nWide > std::numeric_limits<int32_t>::max()) return {};
    return static_cast<int32_t>(nWide);
}

}  // namespace

void MouseClickAt(int32_t nX, int32_t nY, bool bRightButton) {
    const KeyAction Underway;
    const AccelerationPause Pause;
    // The system ignores this field for these flags; it is sent all the same.
    const auto nMouseData =
        static_cast<uint32_t>(platform::SystemMetric(platform::Metric::MouseButtons));
    platform::ScreenPoint Now;
    // A click at a place that nobody asked for would be worse than none.
    if (!platform::GetPointer(Now)) return;
    const auto nDx = Distance(Now.nX, nX);
    const auto nDy = Distance(Now.nY, nY);
    if (!nDx || !nDy) return;
    const uint32_t nDown =
        bRightButton ? platform::MOUSE_FLAG_RIGHTDOWN : platform::MOUSE_FLAG_LEFTDOWN;
    const uint32_t nUp = bRightButton ? platform::MOUSE_FLAG_RIGHTUP : platform::MOUSE_FLAG_LEFTUP;
    const std::array<InputRecord, 3> Records{
        MouseRecord{.nDx = *nDx,
                    .nDy = *nDy,
                    .nMouseData = nMouseData,
                    .dwFlags = platform::MOUSE_FLAG_MOVE},
        MouseRecord{.nMouseData = nMouseData, .dwFlags = nDown},
        MouseRecord{.nMouseData = nMouseData, .dwFlags = nUp}};
    // What another program keeps from the system cannot be sent again: the pointer has moved.
    Unneeded(platform::SendInputRecords(Records));
}

}  // namespace taviro
