// SPDX-License-Identifier: MIT
// Failures that the program lives with: nobody is asked and nothing stops, but whoever looks for
// the reason finds it, with the debugger and in the event log. A failure is said once, where it
// happens; callers that get along without the result do not say it again. An answer is no failure:
// a file that is not there, an unplugged joystick, a window that has gone.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace taviro::platform {

struct FailureReports {
    /// Takes each line that is worth writing, beside the debugger. Start-up sets it: the event log
    /// lies on a higher floor.
    std::function<void(std::wstring_view)> Tell;
    /// How often each failure happened, by where and code.
    std::map<std::pair<std::string, uint32_t>, uint32_t> Counts;
};
inline FailureReports Reports;

/// Says that a call failed: szWhere is its name, nCode the system's error number. Timers tick ten
/// times a second, so a failure that repeats is written the first time, the tenth, the hundredth
/// and so on, with its count.
void ReportFailure(const char* szWhere, uint32_t nCode) noexcept;

inline constexpr uint32_t CODE_ACCESS_DENIED = 5;           ///< the system's ERROR_ACCESS_DENIED
inline constexpr uint32_t CODE_FAILED = 0x80004005;         ///< the system's E_FAIL
inline constexpr uint32_t CODE_OUT_OF_MEMORY = 0x8007000E;  ///< the system's E_OUTOFMEMORY

/// Says, within a catch block, that an exception arrived at the outermost guard szWhere. Returns
/// its code as the system knows it.
uint32_t ReportException(const char* szWhere) noexcept;

/// Shows a line to an attached debugger; does nothing without one.
void WriteToDebugger(const std::wstring& strLine);

}  // namespace taviro::platform
