// SPDX-License-Identifier: MIT
#include "actions/mode_transitions.h"

#include <algorithm>
#include <array>
#include <span>

#include "actions/choice_list.h"
#include "actions/foreground_watch.h"
#include "actions/mode_announcing.h"
#include "feedback/announce.h"
#include "feedback/event_log.h"
#include "forms/main_form.h"
#include "maps/shown_map.h"
#include "platform/messages.h"
#include "settings/setting.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "state/program_state.h"

namespace taviro {

namespace {

// Where a change begins. Between: the mode has ended, and what is in front decides on the next.
enum class From { Selection, Scan, Arrow, Application, List, Anywhere, Between };

enum class When {
    Always,
    ScanningIsOn,
    AppMapIsShown,
    AppModeIsCovered,  // by the list, with its map
    AppMapWasKept,     // in another mode, as the arrow's mark keeps it
};

// What a change does, in the order of its row.
enum class Step {
    StopScan,
    Announce,  // the name of the mode, while others go on
    Log,
    EndMode,  // no mode is on; while messages run it counts as selection
    SetMode,
    RememberCell,      // of the common map
    FollowForeground,  // shows the map of the program in front
    LeaveAppMap,
    ShowCommonMap,
    RunMessages,
    EnterMode,  // the mode's sound to its end, then the cell
    ForgetForeground,
    CloseList,
    GoOn,  // with the row that fits what is shown now
};

struct Transition {
    From nFrom;
    ModeEvent nEvent;
    When nWhen = When::Always;
    Mode nTo{};  // not of a row that goes on with another
    const wchar_t* szAnnounced = nullptr;
    const wchar_t* szLog = nullptr;
    std::span<const Step> Steps;
};

// Scanning ends with every change.
constexpr Step NEXT_MODE[] = {Step::StopScan, Step::Announce, Step::Log, Step::SetMode,
                              Step::CloseList};
constexpr Step NEXT_MODE_REMEMBERED[] = {Step::StopScan, Step::Announce,     Step::Log,
                                         Step::SetMode,  Step::RememberCell, Step::CloseList};
constexpr Step LEAVE_LIST_AND_MAP[] = {Step::StopScan, Step::Announce,    Step::Log,
                                       Step::SetMode,  Step::LeaveAppMap, Step::ForgetForeground,
                                       Step::CloseList};
constexpr Step LEAVE_ARROW[] = {Step::StopScan, Step::EndMode, Step::FollowForeground, Step::GoOn};
constexpr Step LEAVE_SCAN[] = {Step::StopScan, Step::EndMode, Step::RememberCell,
                               Step::FollowForeground, Step::GoOn};
constexpr Step ENTER_APPLICATION[] = {Step::Log, Step::EnterMode, Step::SetMode, Step::CloseList};
constexpr Step ENTER_SELECTION[] = {Step::EnterMode, Step::SetMode, Step::CloseList};
constexpr Step LEAVE_APPLICATION[] = {Step::StopScan,  Step::LeaveAppMap, Step::RunMessages,
                                      Step::EnterMode, Step::SetMode,     Step::ForgetForeground,
                                      Step::CloseList};
// A key may have opened a list while the announcement let messages run.
constexpr Step LOSE_APPLICATION[] = {Step::EndMode, Step::StopScan,         Step::EnterMode,
                                     Step::SetMode, Step::ForgetForeground, Step::CloseList};
constexpr Step MARKED_ARROW[] = {Step::StopScan, Step::Announce, Step::SetMode};
constexpr Step MARKED_APPLICATION[] = {Step::StopScan, Step::Announce, Step::SetMode,
                                       Step::FollowForeground};
constexpr Step MARKED_SELECTION[] = {Step::StopScan, Step::Announce, Step::SetMode,
                                     Step::ShowCommonMap};
constexpr Step MARKED_SELECTION_FROM_APP_MAP[] = {Step::StopScan, Step::Announce, Step::SetMode,
                                                  Step::LeaveAppMap, Step::ForgetForeground};

// The first row that fits counts.
constexpr std::array<Transition, 15> TRANSITIONS{{
    {.nFrom = From::List,
     .nEvent = ModeEvent::ModeButton,
     .nWhen = When::AppModeIsCovered,
     .nTo = Mode::Application,
     .szAnnounced = L"mode_app",
     .szLog = L"AppMode set",
     .Steps = NEXT_MODE},
    {.nFrom = From::List,
     .nEvent = ModeEvent::ModeButton,
     .nWhen = When::AppMapWasKept,
     .nTo = Mode::Select,
     .szAnnounced = L"mode_select",
     .szLog = L"SelectMode set",
     .Steps = LEAVE_LIST_AND_MAP},
    {.nFrom = From::List,
     .nEvent = ModeEvent::ModeButton,
     .nTo = Mode::Select,
     .szAnnounced = L"mode_select",
     .szLog = L"SelectMode set",
     .Steps = NEXT_MODE_REMEMBERED},
    {.nFrom = From::Selection,
     .nEvent = ModeEvent::ModeButton,
     .nTo = Mode::Arrow,
     .szAnnounced = L"mode_arrow",
     .szLog = L"Arrow mode set",
     .Steps = NEXT_MODE_REMEMBERED},
    {.nFrom = From::Arrow,
     .nEvent = ModeEvent::ModeButton,
     .nWhen = When::ScanningIsOn,
     .nTo = Mode::Scan,
     .szAnnounced = L"mode_scan",
     .szLog = L"ScanMode set",
     .Steps = NEXT_MODE},
    {.nFrom = From::Arrow, .nEvent = ModeEvent::ModeButton, .Steps = LEAVE_ARROW},
    {.nFrom = From::Scan, .nEvent = ModeEvent::ModeButton, .Steps = LEAVE_SCAN},
    {.nFrom = From::Between,
     .nEvent = ModeEvent::ModeButton,
     .nWhen = When::AppMapIsShown,
     .nTo = Mode::Application,
     .szLog = L"AppMode set",
     .Steps = ENTER_APPLICATION},
    {.nFrom = From::Between,
     .nEvent = ModeEvent::ModeButton,
     .nTo = Mode::Select,
     .Steps = ENTER_SELECTION},
    {.nFrom = From::Application,
     .nEvent = ModeEvent::ModeButton,
     .nTo = Mode::Select,
     .Steps = LEAVE_APPLICATION},
    {.nFrom = From::Application,
     .nEvent = ModeEvent::AppMapGone,
     .nTo = Mode::Select,
     .Steps = LOSE_APPLICATION},
    {.nFrom = From::Anywhere,
     .nEvent = ModeEvent::ArrowMark,
     .nTo = Mode::Arrow,
     .szAnnounced = L"mode_arrow",
     .Steps = MARKED_ARROW},
    {.nFrom = From::Anywhere,
     .nEvent = ModeEvent::ApplicationMark,
     .nTo = Mode::Application,
     .szAnnounced = L"mode_app",
     .Steps = MARKED_APPLICATION},
    {.nFrom = From::Anywhere,
     .nEvent = ModeEvent::SelectionMark,
     .nWhen = When::AppMapIsShown,
     .nTo = Mode::Select,
     .szAnnounced = L"mode_select",
     .Steps = MARKED_SELECTION_FROM_APP_MAP},
    {.nFrom = From::Anywhere,
     .nEvent = ModeEvent::SelectionMark,
     .nTo = Mode::Select,
     .szAnnounced = L"mode_select",
     .Steps = MARKED_SELECTION},
}};

From PlaceNow() {
    switch (WhatIsDriven()) {
        case DrivenBy::List:
            return From::List;
        case DrivenBy::Arrow:
            return From::Arrow;
        case DrivenBy::Scan:
            return From::Scan;
        case DrivenBy::Application:
            return From::Application;
        case DrivenBy::Selection:
            break;
    }
    return From::Selection;
}

bool Holds(When nWhen) {
    switch (nWhen) {
        case When::ScanningIsOn:
            return objSetting.ScanMode() == 1;
        case When::AppMapIsShown:
            return Foreground.bAppMapShown;
        case When::AppModeIsCovered:
            return Foreground.bAppMapShown && Modes.bAppMode;
        case When::AppMapWasKept:
            return Foreground.bAppMapShown && (Modes.bArrowMode || Modes.bScanMode);
        case When::Always:
            break;
    }
    return true;
}

bool IsOn(Mode nMode) {
    switch (nMode) {
        case Mode::Select:
            return Modes.bSelectMode;
        case Mode::Scan:
            return Modes.bScanMode;
        case Mode::Arrow:
            return Modes.bArrowMode;
        case Mode::Application:
            break;
    }
    return Modes.bAppMode;
}

void Carry(Step nStep, const Transition& Row);

void ChangeFrom(From nFrom, ModeEvent nEvent) {
    const auto* pRow = std::find_if(TRANSITIONS.begin(), TRANSITIONS.end(), [&](const auto& Row) {
        return (Row.nFrom == nFrom || Row.nFrom == From::Anywhere) && Row.nEvent == nEvent &&
               Holds(Row.nWhen);
    });
    if (pRow == TRANSITIONS.end()) return;
    // A mark whose mode is on changes nothing, but the one that also leads away from a map.
    const bool bMark = pRow->nFrom == From::Anywhere && pRow->nWhen == When::Always;
    if (bMark && IsOn(pRow->nTo)) return;
    for (const Step nStep : pRow->Steps)
        Carry(nStep, *pRow);
}

void Carry(Step nStep, const Transition& Row) {
    switch (nStep) {
        case Step::StopScan:
            forms::FrmMain->ScanTimer.Enabled = false;
            return;
        case Step::Announce:
            return Announce(Row.szAnnounced);
        case Step::Log:
            return LogEvent(Row.szLog);
        case Step::EndMode:
            return Modes.Clear();
        case Step::SetMode:
            return Modes.Set(Row.nTo);
        case Step::RememberCell:
            if (!Foreground.bAppMapShown) Cursor.Remember();
            return;
        case Step::FollowForeground:
            return CheckForegroundApp(true);
        case Step::LeaveAppMap:
            return LeaveAppMap();
        case Step::ShowCommonMap:
            return ShowCommonMapAgain();
        case Step::RunMessages:
            return platform::RunPendingMessages();
        case Step::EnterMode:
            return Row.nTo == Mode::Application ? EnterAppMode() : EnterSelectMode();
        case Step::ForgetForeground:
            return ForgetForegroundApp();
        case Step::CloseList:
            return HideList();
        case Step::GoOn:
            return ChangeFrom(From::Between, Row.nEvent);
    }
}

}  // namespace

DrivenBy WhatIsDriven() {
    if (Modes.bListMode) return DrivenBy::List;
    if (Modes.bArrowMode) return DrivenBy::Arrow;
    if (Modes.bScanMode) return DrivenBy::Scan;
    if (Modes.bAppMode) return DrivenBy::Application;
    return DrivenBy::Selection;
}

void ChangeMode(ModeEvent nEvent) {
    ChangeFrom(PlaceNow(), nEvent);
}

bool EventOfMark(ModeMark nMark, ModeEvent& nEvent) {
    switch (nMark) {
        case ModeMark::Selection:
            nEvent = ModeEvent::SelectionMark;
            return true;
        case ModeMark::Arrow:
            nEvent = ModeEvent::ArrowMark;
            return true;
        case ModeMark::Application:
            nEvent = ModeEvent::ApplicationMark;
            return true;
        case ModeMark::None:
            break;
    }
    return false;
}

}  // namespace taviro
