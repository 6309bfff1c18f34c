// SPDX-License-Identifier: MIT
// Mode, map and list are one state. From the start every event is tried in every state that it can
// lead to, and each step is compared with what the modes promise, told here once more, plainly.
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "actions/choice_list.h"
#include "actions/command_action.h"
#include "actions/mode_transitions.h"
#include "core/poll_loop.h"
#include "maps/shown_map.h"
#include "settings/button_table.h"
#include "state/mode_state.h"
#include "tests/unit/core/two_programs.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

// The program in front belongs to the state: it decides where two of the changes lead.
struct Situation {
    std::string strMode;  // "start" is selection that was never chosen
    bool bAppMap = false;
    bool bList = false;
    bool bFrontHasMap = false;
    auto operator<=>(const Situation&) const =
        default;  // NOLINT(modernize-use-nullptr): the 0 in it
};

std::string Text(const Situation& Here) {
    return Here.strMode + (Here.bAppMap ? ", its map" : ", common map") +
           (Here.bList ? ", list" : "") + (Here.bFrontHasMap ? " (editor)" : " (other)");
}

enum class Event {
    ModeButton,
    SelectionMark,
    ArrowMark,
    ApplicationMark,
    OpenList,
    AcceptList,
    EditorInFront,
    OtherInFront,
    PickEditorsMap,
    PickCommonMap,
    Tick,
};
const std::map<Event, std::string> EVENTS{
    {Event::ModeButton, "mode button"},
    {Event::SelectionMark, "<"},
    {Event::ArrowMark, "|"},
    {Event::ApplicationMark, ">"},
    {Event::OpenList, "list opens"},
    {Event::AcceptList, "entry accepted"},
    {Event::EditorInFront, "editor"},
    {Event::OtherInFront, "other program"},
    {Event::PickEditorsMap, "map picked"},
    {Event::PickCommonMap, "common map picked"},
    {Event::Tick, "tick"},
};

bool IsSelection(const Situation& Here) {
    return Here.strMode == "start" || Here.strMode == "selection";
}

// What the program in front decides: its map if it has one, else the common one.
Situation FollowedFront(Situation Here) {
    Here.bAppMap = Here.bFrontHasMap;
    return Here;
}

// In application mode every tick looks at the map first.
Situation AfterTick(Situation Here) {
    if (Here.bList || Here.strMode != "application" || Here.bAppMap) return Here;
    return {"selection", false, false, Here.bFrontHasMap};
}

Situation AfterModeButton(Situation Here, bool bScanningIsOn) {
    if (Here.bList && Here.bAppMap && !IsSelection(Here)) {
        // Back in the application mode on its map, or away from both; a map that was picked stays.
        const bool bStays = Here.strMode == "application";
        return {bStays ? "application" : "selection", bStays, false, Here.bFrontHasMap};
    }
    if (Here.bList) return {"selection", Here.bAppMap, false, Here.bFrontHasMap};
    if (IsSelection(Here)) {
        Here.strMode = "arrow";
    } else if (Here.strMode == "arrow" && bScanningIsOn) {
        Here.strMode = "scan";
    } else if (Here.strMode == "application") {
        return {"selection", false, false, Here.bFrontHasMap};
    } else {
        Here = FollowedFront(Here);
        Here.strMode = Here.bAppMap ? "application" : "selection";
    }
    return Here;
}

// A new program in front matters to the application mode alone, and not under an open list.
Situation AfterFront(Situation Here, bool bFrontHasMap) {
    const bool bChanges = Here.bFrontHasMap != bFrontHasMap;
    Here.bFrontHasMap = bFrontHasMap;
    if (Here.bList || Here.strMode != "application") return Here;
    if (bChanges && (bFrontHasMap || Here.bAppMap)) Here = FollowedFront(Here);
    return AfterTick(Here);
}

Situation Promised(Situation Here, Event nEvent, bool bScanningIsOn) {
    switch (nEvent) {
        case Event::ModeButton:
            return AfterModeButton(Here, bScanningIsOn);
        case Event::SelectionMark:
            Here.bAppMap = false;
            Here.strMode = "selection";
            return Here;
        case Event::ArrowMark:
            Here.strMode = "arrow";
            return Here;
        case Event::ApplicationMark:
            if (Here.strMode != "application") Here = FollowedFront(Here);
            Here.strMode = "application";
            return Here;
        case Event::OpenList:
            Here.bList = true;
            return Here;
        case Event::AcceptList:
            Here.bList = false;
            return Here;
        case Event::EditorInFront:
            return AfterFront(Here, true);
        case Event::OtherInFront:
            return AfterFront(Here, false);
        case Event::PickEditorsMap:
            Here.bAppMap = true;
            return Here;
        case Event::PickCommonMap:
            Here.bAppMap = false;
            return Here;
        case Event::Tick:
            return AfterTick(Here);
    }
    return Here;
}

// Buttons whose commands the events carry out, whatever drives the ticks.
constexpr int32_t SELECTION_COMMAND = 3, ARROW_COMMAND = 4, APPLICATION_COMMAND = 5,
                  LIST_COMMAND = 6;

class ModeStates : public ProgramTest, public ::testing::WithParamInterface<int32_t> {
  protected:
    void Begin() {
        Desktop = platform::headless::DesktopState{};
        StartAnew();
        PutData(L"data.ini", L"[1,1]a,65\r\n[2,1]b,66\r\n");
        PutData(L"data_EDITOR.EXE.ini", L"[1,1]x,88\r\n[2,1]y,89\r\n");
        OpenTwoPrograms(OTHER_WINDOW);
        Start();
        objSetting.ScanMode(GetParam());
        PutCommand(SELECTION_COMMAND, L"<");
        PutCommand(ARROW_COMMAND, L"|");
        PutCommand(APPLICATION_COMMAND, L">");
        PutCommand(LIST_COMMAND, L"*T;a");
    }
    static void PutCommand(int32_t nButton, const std::wstring& strCommand) {
        ButtonTable[static_cast<size_t>(nButton)] = {
            .Kind = ButtonKind::Command, .Command = strCommand, .Code = 0};
    }
    static void OneTick() { forms::FrmMain->Timer1.Tick(); }
    static void BringToFront(platform::WindowHandle hWindow) {
        Desktop.hForeground = hWindow;
        OneTick();
    }
    static void PushModeButton() {
        PressButton(MODE_BUTTON);
        OneTick();
        ReleaseButtons();
        Poll.nPrevButton = 0;  // released without another tick, which is an event of its own
    }
    static void Happen(Event nEvent) {
        switch (nEvent) {
            case Event::ModeButton:
                return PushModeButton();
            case Event::SelectionMark:
                return CommandAction(SELECTION_COMMAND);
            case Event::ArrowMark:
                return CommandAction(ARROW_COMMAND);
            case Event::ApplicationMark:
                return CommandAction(APPLICATION_COMMAND);
            case Event::OpenList:
                return CommandAction(LIST_COMMAND);
            case Event::AcceptList:
                return ListAccept();
            case Event::EditorInFront:
                return BringToFront(EDITOR_WINDOW);
            case Event::OtherInFront:
                return BringToFront(OTHER_WINDOW);
            case Event::PickEditorsMap:
                return ShowPickedMap(L"EDITOR.EXE");
            case Event::PickCommonMap:
                return ShowPickedMap(L"");
            case Event::Tick:
                return OneTick();
        }
    }
    static Situation Now() {
        std::vector<std::string> On;
        if (Modes.bSelectMode) On.emplace_back("selection");
        if (Modes.bScanMode) On.emplace_back("scan");
        if (Modes.bArrowMode) On.emplace_back("arrow");
        if (Modes.bAppMode) On.emplace_back("application");
        EXPECT_LE(On.size(), 1U) << "modes exclude each other";
        return {On.empty() ? "start" : On.front(), Foreground.bAppMapShown, Modes.bListMode,
                Desktop.hForeground == EDITOR_WINDOW};
    }
    Situation After(const std::vector<Event>& Events) {
        Begin();
        for (const Event nEvent : Events)
            Happen(nEvent);
        return Now();
    }
};

using Path = std::vector<Event>;

TEST_P(ModeStates, EveryEvent_DoesWhatTheModesPromise_FromEveryStateThatCanOccur) {
    std::map<Situation, Path> Known;
    std::deque<Situation> Open;
    const auto Meet = [&](const Situation& Here, const Path& Way) {
        if (Known.emplace(Here, Way).second) Open.push_back(Here);
    };
    Meet(After({}), {});
    while (!Open.empty()) {
        const Situation Here = Open.front();
        Open.pop_front();
        for (const auto& [nEvent, strEvent] : EVENTS) {
            Path Way = Known.at(Here);
            Way.push_back(nEvent);
            const Situation There = After(Way);
            EXPECT_EQ(Text(There), Text(Promised(Here, nEvent, GetParam() == 1)))
                << "from " << Text(Here) << " by " << strEvent;
            Meet(There, Way);
        }
    }
    std::set<std::string> Modes;
    for (const auto& [Here, Way] : Known)
        Modes.insert(Here.strMode);
    std::set<std::string> Expected{"start", "selection", "arrow", "application"};
    if (GetParam() == 1) Expected.insert("scan");
    EXPECT_EQ(Modes, Expected);
    // Each with both maps, with and without a list, before both programs: an application's map is
    // shown in every mode, because it can be picked and because the arrow's mark leaves it.
    EXPECT_EQ(Known.size(), Expected.size() * 8);
}

INSTANTIATE_TEST_SUITE_P(WithScanning, ModeStates, ::testing::Values(0, 1));

}  // namespace
}  // namespace taviro
