// SPDX-License-Identifier: MIT
#include "feedback/event_log.h"

#include "forms/main_form.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/unneeded.h"
#include "state/program_state.h"

namespace taviro {

namespace {

constexpr std::wstring_view LINE_END = L"\r\n";

// The tick in the menu follows what the log does.
void SwitchLog(bool bOn) {
    EventLog.bLog = bOn;
    forms::FrmMain->mnuLog.Checked = EventLog.bLog;
}

}  // namespace

void LogEvent(std::wstring_view strText) {
    if (!EventLog.bLog) return;
    EventLog.strLog.append(LINE_END).append(platform::TimeOfDayText()).append(L" ").append(strText);
}

void StartLog() {
    SwitchLog(true);
    EventLog.strLog = platform::DateTimeText();
}

void ToggleLog() {
    if (!EventLog.bLog) return StartLog();
    SwitchLog(false);
    FlushLog();
}

void FlushLog() {
    if (EventLog.strLog.empty()) return;
    const std::string strBlock = platform::ToAnsi(EventLog.strLog) + platform::ToAnsi(LINE_END);
    // The buffer stays: a block that could not be written now is written at the end of the program.
    Unneeded(platform::AppendFileBytes(Program.strDataPath + L"\\log.txt", strBlock));
}

}  // namespace taviro
