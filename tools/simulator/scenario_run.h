// SPDX-License-Identifier: MIT
// One run of one scenario: a fresh program on a fresh virtual desktop, the effects that no
// expectation has looked at yet, and what went wrong so far.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/headless/desktop.h"
#include "tools/simulator/sentence.h"
#include "tools/simulator/stand_ins.h"

namespace taviro::simulator {

enum class Outcome { Passed, Failed, Broken };

struct RunOptions {
    bool bMap = false;         ///< the map after each step
    bool bQuiet = false;       ///< only what went wrong
    bool bMustExpect = false;  ///< a scenario without an expectation has failed
    /// The keyboard layout of the programs in front.
    platform::LayoutHandle hLayout = platform::headless::CZECH_LAYOUT;
    bool bNumLock = false;
    bool bForeign = false;  ///< the user has a name that Windows-1250 lacks
    bool bHeld = false;     ///< a virus scanner holds each file that was written
};

using Printer = std::function<void(std::string_view)>;

class ScenarioRun {
  public:
    /// Path names the scenario in messages; files that it takes are looked for in its folder.
    /// Starts the program's state and the virtual desktop afresh.
    ScenarioRun(std::filesystem::path Path, const RunOptions& Options, Printer Print);

    /// Reads the scenario's text and runs it to its end, or to the first line that cannot be
    /// carried out.
    Outcome Run(std::string_view strBytes);

    // For the steps.

    /// An expectation was not met; the lines explain it.
    void Fail(const Step& At, const std::string& strText,
              const std::vector<std::string>& Lines = {});
    /// The step cannot be carried out; the run ends.
    void Break(const Step& At, const std::string& strText);
    /// Milliseconds since the scenario's beginning.
    uint32_t Elapsed(uint32_t nTime) const { return nTime - m_nBeginning; }
    /// The program has started, after a wait for held files: a scenario's times count as if there
    /// had been none.
    void LeaveOut(uint32_t nWaitedMs);
    std::filesystem::path Folder() const { return m_Path.parent_path(); }
    /// Unless the run is quiet.
    void PrintMap();

    std::vector<platform::headless::Effect> Unchecked;  ///< effects since the last look at them
    std::shared_ptr<StandInData> pStandIns = std::make_shared<StandInData>();
    int nExpectations = 0;
    bool bProgramRuns = false;
    bool bStartedBefore = false;  ///< the program has run and ended in this scenario

  private:
    void RunStep(const Step& Next);
    void MoveFoldersAbroad();
    [[nodiscard]] std::string AtHome(std::string strText) const;
    void Say(int nLine, const std::string& strText);

    std::filesystem::path m_Path;
    RunOptions m_Options;
    Printer m_Print;
    uint32_t m_nBeginning = 0;
    int m_nFailures = 0;
    bool m_bBroken = false;
    bool m_bMapPrinted = false;  ///< by the step that runs
    /// What the folders are called where the user has a foreign name, and in scenarios.
    std::vector<std::pair<std::string, std::string>> m_ForeignNames;
};

/// An effect's text on one line: ends of lines and tabs are shown as signs.
std::string OneLine(std::string_view strText);

/// A time and a text as the transcript shows them.
std::string TimedLine(uint32_t nTime, const std::string& strText);

/// Reads a scenario file and runs it. A file that cannot be read is broken.
Outcome RunScenarioFile(const std::filesystem::path& Path, const RunOptions& Options,
                        const Printer& Print);

}  // namespace taviro::simulator
