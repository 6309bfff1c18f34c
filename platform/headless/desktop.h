// SPDX-License-Identifier: MIT
// The virtual desktop behind the headless platform: one stateful stand-in for everything that the
// program asks of Windows, on a clock of its own. Tests and the simulator set its public parts
// before a call and read them, or the transcript, afterwards.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "forms/main_form.h"
#include "platform/automation.h"
#include "platform/device_questions.h"
#include "platform/driven_window.h"
#include "platform/headless/failure_orders.h"
#include "platform/headless/file_holders.h"
#include "platform/headless/keyboard_layouts.h"
#include "platform/headless/memory_files.h"
#include "platform/input_ledger.h"
#include "platform/joystick.h"
#include "platform/keyboard_hook.h"
#include "platform/keys.h"
#include "platform/layout_translation.h"
#include "platform/metrics.h"
#include "platform/native_program.h"
#include "platform/playing_sound.h"
#include "platform/pointer.h"
#include "platform/shell.h"
#include "platform/text_extent.h"
#include "platform/windows_and_processes.h"

namespace taviro::platform {

/// The shell's list of this desktop: simply the path.
struct ItemIdList {
    std::wstring strPath;
};

}  // namespace taviro::platform

namespace taviro::platform::headless {

/// One effect and when it happened.
struct Effect {
    uint32_t nTime;
    std::string strText;  ///< UTF-8
};

/// A joystick. Unplugged after it was there it behaves as on Windows: it tells its capabilities,
/// and the question for its position fails late.
struct VirtualJoystick {
    bool bPresent = false;
    bool bKnown = false;  ///< it was there
    std::string strName = "Joystick";
    uint32_t nX = 32767;
    uint32_t nY = 32767;
    uint32_t nButtons = 0;
    uint32_t nReads = 0;        ///< successful and failed position queries
    uint32_t nLastReadAt = 0;   ///< when the last of them was
    JoyInfoRecord LastQuery{};  ///< the record as it was handed in
    uint32_t nLastCapsSize = 0;
};

/// A key press that reached the program in front, with the modifiers that it saw.
struct ReceivedKey {
    uint32_t nVk = 0;
    bool bShift = false;
    bool bCtrl = false;
    bool bAlt = false;
    bool operator==(const ReceivedKey&) const = default;
};

/// The keyboard as the system sees it, and the text that the program in front received.
struct VirtualKeyboard {
    std::array<bool, 256> bDown{};  ///< by virtual key; generic modifiers follow their sides
    bool bCapsLock = false;
    bool bNumLock = false;
    LayoutHandle hLayout = CZECH_LAYOUT;  ///< of threads that have not been given another
    std::map<uint32_t, LayoutHandle> ThreadLayouts;
    std::vector<ReceivedKey> Received;
    std::wstring strTyped;  ///< a text field with its caret at the end
    wchar_t nPendingDeadKey = 0;
    LayoutTranslation Translation;
    InputLedger Ledger;
    KeyHookProcedure pHook = nullptr;
    uintptr_t hHook = 0;
    bool bPassedOn = false;  ///< the event being handled went on to the next hook
};

/// A window of another program.
struct VirtualWindow {
    WindowHandle hWindow = 0;
    std::wstring strTitle{};
    std::wstring strClass{};
    uint32_t nProcess = 0;
    uint32_t nThread = 0;
    ScreenRect Rect{};
    WindowHandle hParent = 0;          ///< 0 for a top-level window
    int32_t nAccessibleChildren = -1;  ///< -1: its accessible object cannot be had
    bool bGreaterRights = false;       ///< it takes nothing that is sent, and nobody is told
    bool bHidden = false;              ///< not shown, nor what lies in it
    bool bCovered = false;             ///< by a window of another program
    bool bGone = false;  ///< closed since its parent listed it: every call but the listing fails
};

/// The program's own windows, but for the main one, have handles from here.
inline constexpr WindowHandle FIRST_OWN_WINDOW = 0x10000;

/// A program that can be launched, and the window that it opens: behind the others, unless who
/// launched it has let it come to the front.
struct VirtualProgram {
    VirtualWindow Window{};
    uint32_t nOpensAfterMs = 0;
    bool bStaysBehind = false;  ///< whatever it was let
};

/// Members of a late-bound object: how the member is used, its name, arguments, result.
enum class MemberUse { Method, Get, Put };
using MemberHandler = std::function<bool(MemberUse, const std::wstring&,
                                         std::span<AutomationArgument>, AutomationValue&)>;

/// Makes an object for a registered class; used by tests to build stand-ins.
AutomationObject MakeObject(MemberHandler Handler);

/// Counts how often something is under way, also when it is left by an exception.
class Within {
  public:
    explicit Within(int& nCount) : m_nCount(nCount) { ++m_nCount; }
    Within(const Within&) = delete;
    Within& operator=(const Within&) = delete;
    ~Within() { --m_nCount; }

  private:
    int& m_nCount;
};

struct DesktopState {
    // Transcript.
    std::vector<Effect> Transcript;
    bool bRecording = true;
    void Record(std::string strText);
    /// The texts of all effects so far; forgets them.
    std::vector<std::string> TakeEffects();

    // Failures.
    FailureOrders Failures;
    std::vector<std::wstring> DebuggerLines;  ///< what an attached debugger would have shown
    /// Whether the call was ordered to fail. Then it is reported, as the Windows layer reports it.
    bool Refuses(const char* szCall, std::wstring_view strSubject = {}, size_t* pDone = nullptr);

    // Clock, timers and events.
    uint32_t nNow = 1000;
    uint32_t nLastInput = 0;
    int nInnerLoops = 0;  ///< waits and modal dialogs of the program that run now
    /// Handlers of the program, and calls out of it, that let no messages through: what is posted
    /// waits for their end.
    int nBusy = 0;
    int nPauses = 0;  ///< OwnWorkPauses
    /// The hook's procedure, or a message that another program sends: calls out of the program are
    /// refused in them, as Windows refuses them.
    int nNoCallsOut = 0;
    std::vector<std::function<void()>> Postponed;  ///< what was to be done during a pause
    /// Runs it when the clock reaches nTime and messages are let through.
    void At(uint32_t nTime, std::function<void()> Run);
    /// What others do when the clock reaches nTime, whatever the program does then: keys of the
    /// physical keyboard, a plug pulled, windows of other programs.
    void Meanwhile(uint32_t nTime, std::function<void()> Run);
    /// Time that the program spends in a sleep or in a call: the rest of the world goes on.
    void Pass(uint32_t nMilliseconds);
    /// Lets time pass as an idle message loop does: everything due runs when it is due.
    void RunFor(uint32_t nMilliseconds);
    /// Runs what is due now; the clock stands still.
    void RunDue();

    // Devices.
    VirtualJoystick Joystick{.bPresent = true};          ///< the one in the user's hand, device 0
    std::map<uint32_t, VirtualJoystick> OtherJoysticks;  ///< by device number
    DeviceQuestions Questions;
    uint32_t nQuestionEnds = 0;      ///< when the question that is under way has its answer
    uint32_t nUnpluggedTakes = 300;  ///< how long an unplugged device lets a question wait, ms
    VirtualKeyboard Keyboard;
    std::vector<InputRecord> Sent;  ///< every record of SendInput, in order
    /// A key of the physical keyboard: through the hook, then to the program in front. What the
    /// hook posts is done at once where the program waits for messages.
    void PhysicalKey(uint8_t nVk, bool bDown);
    /// Virtual keys that are down.
    std::vector<int> KeysDown() const;
    ScreenPoint Pointer;
    std::array<int32_t, 3> MouseAcceleration{6, 10, 1};

    // Sound.
    PlayingSound Playing;
    uint32_t nSoundLength = 300;  ///< how long each sound plays, ms
    bool bSoundFails = false;     ///< nothing plays
    uint32_t nBeeps = 0;

    // Screen and text.
    std::map<Metric, int32_t> Metrics;
    int32_t nDpi = 96;
    LogicalFont MeasureFont;
    bool bMeasuring = false;
    uint32_t nMeasureContexts = 0;  ///< how many were made

    // Files, shell, processes, windows.
    MemoryFiles Files;
    FileHolders Holders;
    std::wstring strProgramFolder = L"C:\\Program Files\\Taviro";
    std::map<int32_t, std::wstring> SpecialFolders;
    std::vector<uintptr_t> FolderOwners;  ///< owner windows handed to the folder query
    std::deque<ItemIdList> FolderLists;   ///< handed out, and never freed by the program
    intptr_t nShellResult = 42;
    std::vector<VirtualWindow> Windows;
    WindowHandle hForeground = 0;
    SystemFolders Folders;  ///< as the program sees them: of 32 bits on a system of 64, or the same
    std::map<std::wstring, VirtualProgram> Programs;  ///< by what is launched
    /// Starts the program of that name, if there is one (used by ShellExecuteOnDesktop).
    void StartProgram(const std::wstring& strFile);
    std::vector<ProcessEntry> Processes;
    std::vector<ScreenRect> Regions;  ///< all that were made; their handles count from 1

    // Late-bound classes by ProgID.
    std::map<std::wstring, std::function<AutomationObject()>> Classes;

    // The main window.
    forms::MainForm* pMainForm = nullptr;
    ScreenRect MainRect{};  ///< where it stands
    /// Where its inner area begins. The frame is wider than the metric says, as on Windows, which
    /// pads it.
    [[nodiscard]] ScreenPoint MainInnerCorner() const;
    bool bQuit = false;
    bool bOtherInstance = false;
    bool bFrontIsOpen = false;  ///< others may come to the front
    int nExitCode = 0;

    // Dialogs.
    std::vector<forms::Form*> Dialogs;
    forms::Form* pActiveDialog = nullptr;  ///< the one that the user works in; none: another window
    DrivenWindow Driven;
    /// Another program writes into the external-control box, by a message that it sends.
    void WriteIntoBox(const std::wstring& strText);
    /// The user goes to a dialog, or to another window when there is none given.
    void ActivateDialog(forms::Form* pForm);
    /// The user opens the menu of the main window, which takes the focus, and chooses an entry, or
    /// closes it when there is none given. What was in front before comes to the front only when
    /// the program sees to it.
    void OpenMenu(forms::MenuEntry* pChosen);
    /// What the user does while a message is shown, before he confirms it.
    std::function<void()> WhileMessage;
    /// What the user does while a form is shown modal; the form stays open when it does not end it.
    std::function<void(forms::Form&)> WhileModal;

    DesktopState();

    /// Runs one key event through the hook to the program in front (used by the sending calls).
    void DeliverKey(uint32_t nVk, uint32_t nScan, uint32_t dwFlags, bool bInjected);
    /// The view of the main form (used by OpenMainWindow): a change of a timer sets when it is due.
    void WatchTimer(forms::Timer& Watched);
    /// The files that are being written; their handles count from 1 (used by CreateNewFile).
    std::vector<std::wstring> WrittenFiles;
    /// The window is gone, and its timers with it (used by CloseMainWindow).
    void ForgetTimers();

  private:
    struct Due {
        uint32_t nTime;
        forms::Timer* pTimer;
    };
    struct Event {
        uint32_t nTime;
        std::function<void()> Run;
    };
    bool RunNext(std::deque<Event>& Events, uint32_t nUntil);
    bool RunNextDue(uint32_t nUntil);
    void TypeKey(uint32_t nVk);
    void TypeCharacter(wchar_t nTyped);

    static void Insert(std::deque<Event>& Events, uint32_t nTime, std::function<void()> Run);

    std::vector<Due> m_Timers;
    std::deque<Event> m_Events;  // these two in the order of their times
    std::deque<Event> m_World;   // what others do
};

inline DesktopState Desktop;

/// A loop of the system's own, as a modal dialog runs it: messages are let through meanwhile.
class LetThrough {
  public:
    LetThrough() : m_nBusyBefore(std::exchange(Desktop.nBusy, 0)) {}
    LetThrough(const LetThrough&) = delete;
    LetThrough& operator=(const LetThrough&) = delete;
    ~LetThrough() { Desktop.nBusy = m_nBusyBefore; }

  private:
    int m_nBusyBefore;
};

}  // namespace taviro::platform::headless
