// SPDX-License-Identifier: MIT
// The event log: lines collected in memory while logging is on, appended to "log.txt" when it is
// switched off and when the program ends. Windows-1250, CR LF.
#pragma once

#include <string>
#include <string_view>

namespace taviro {

struct EventLogState {
    bool bLog = false;
    std::wstring
        strLog;  ///< date and time of switching on, then one line an event; kept when flushed
};
inline EventLogState EventLog;

/// Adds a line with the time of day while logging is on.
void LogEvent(std::wstring_view strText);

/// Switches logging on: the buffer starts anew with the date and time, the menu entry is ticked.
void StartLog();

/// What a click on the menu entry does: switches logging on, or off and writes the file.
void ToggleLog();

/// Appends the buffer and a line end to the file; an empty buffer writes nothing. The buffer is
/// kept: what failed to be written now is written at the end of the program.
void FlushLog();

}  // namespace taviro
