// SPDX-License-Identifier: MIT
#include "tools/simulator/scenario_run.h"

#include <cstdio>
#include <utility>

#include "core/program_reset.h"
#include "platform/text.h"
#include "tools/simulator/host_files.h"
#include "tools/simulator/map_text.h"
#include "tools/simulator/scenario.h"
#include "tools/simulator/scene.h"
#include "tools/simulator/sentences.h"

namespace taviro::simulator {

using platform::ToUtf8;
using platform::headless::Desktop;
using platform::headless::DesktopState;
using platform::headless::Effect;

namespace {

// Nearly half a second: a save and the start after it wait, and the clock of the log stays in its
// second.
constexpr uint32_t HELD_FOR_MS = 450;
constexpr const wchar_t* FOREIGN_DATA = L"C:\\Users\\Жанна 日本\\AppData\\Roaming";
constexpr const wchar_t* FOREIGN_PROGRAM =
    L"C:\\Users\\Жанна 日本\\AppData\\Local\\Programs\\Taviro";

}  // namespace

ScenarioRun::ScenarioRun(std::filesystem::path Path, const RunOptions& Options, Printer Print)
    : m_Path(std::move(Path)), m_Options(Options), m_Print(std::move(Print)) {
    Desktop = DesktopState{};
    Desktop.Keyboard.hLayout = m_Options.hLayout;
    Desktop.Keyboard.bNumLock = m_Options.bNumLock;
    if (m_Options.bHeld) Desktop.Holders.nHeldForMs = HELD_FOR_MS;
    if (m_Options.bForeign) MoveFoldersAbroad();
    ResetProgram();
    m_nBeginning = Desktop.nNow;
    InstallSpeechEngine(pStandIns);
}

Outcome ScenarioRun::Run(std::string_view strBytes) {
    Scenario Parsed;
    ScenarioError Error;
    if (!ParseScenario(strBytes, Language(), Parsed, Error)) {
        Say(Error.nLine, ToUtf8(Error.strText));
        return Outcome::Broken;
    }
    for (const Step& Next : Parsed.Steps) {
        RunStep(Next);
        if (m_bBroken) return Outcome::Broken;
    }
    if (m_Options.bMustExpect && nExpectations == 0) {
        Say(1, "the scenario expects nothing");
        return Outcome::Failed;
    }
    return m_nFailures == 0 ? Outcome::Passed : Outcome::Failed;
}

// A program may be installed beside its user's files, so that its folder has his name as well.
void ScenarioRun::MoveFoldersAbroad() {
    const auto Move = [this](std::wstring& strFolder, const std::wstring& strForeign) {
        m_ForeignNames.emplace_back(ToUtf8(strForeign), ToUtf8(strFolder));
        strFolder = strForeign;
        Desktop.Files.CreateFolders(strFolder);
    };
    Move(Desktop.SpecialFolders[ROAMING_DATA_FOLDER], FOREIGN_DATA);
    Move(Desktop.strProgramFolder, FOREIGN_PROGRAM);
}

// The text with the folders' names as scenarios write them.
std::string ScenarioRun::AtHome(std::string strText) const {
    for (const auto& [strForeign, strUsual] : m_ForeignNames) {
        for (size_t n = strText.find(strForeign); n != std::string::npos;
             n = strText.find(strForeign)) {
            strText.replace(n, strForeign.size(), strUsual);
        }
    }
    return strText;
}

void ScenarioRun::RunStep(const Step& Next) {
    if (!m_Options.bQuiet) m_Print("> " + ToUtf8(Next.strLine) + "\n");
    const int nExpectedBefore = nExpectations;
    m_bMapPrinted = false;
    Next.pSentence->Do(*this, Next);
    for (Effect& Done : std::exchange(Desktop.Transcript, {})) {
        Done.strText = AtHome(OneLine(Done.strText));
        if (!m_Options.bQuiet) {
            m_Print(TimedLine(Elapsed(Done.nTime), Done.strText) + "\n");
        }
        Unchecked.push_back(std::move(Done));
    }
    const bool bExpectation = nExpectations != nExpectedBefore;
    if (m_Options.bMap && bProgramRuns && !bExpectation && !m_bMapPrinted) PrintMap();
}

void ScenarioRun::LeaveOut(uint32_t nWaitedMs) {
    m_nBeginning += nWaitedMs;
    for (Effect& Done : Desktop.Transcript)
        Done.nTime = Desktop.nNow;
}

void ScenarioRun::PrintMap() {
    m_bMapPrinted = true;
    if (m_Options.bQuiet) return;
    for (const std::string& strLine : MapText(*forms::FrmMain))
        m_Print("          " + strLine + "\n");
}

void ScenarioRun::Say(int nLine, const std::string& strText) {
    m_Print(m_Path.string() + ":" + std::to_string(nLine) + ": " + strText + "\n");
}

void ScenarioRun::Fail(const Step& At, const std::string& strText,
                       const std::vector<std::string>& Lines) {
    ++m_nFailures;
    Say(At.nLine, strText);
    for (const std::string& strLine : Lines)
        m_Print("    " + strLine + "\n");
}

void ScenarioRun::Break(const Step& At, const std::string& strText) {
    m_bBroken = true;
    Say(At.nLine, strText);
}

std::string OneLine(std::string_view strText) {
    std::string strLine;
    for (const char nByte : strText) {
        if (nByte == '\n') {
            strLine += "⏎";
        } else if (nByte == '\t') {
            strLine += "⇥";
        } else if (nByte != '\r') {
            strLine += nByte;
        }
    }
    return strLine;
}

std::string TimedLine(uint32_t nTime, const std::string& strText) {
    char szTime[16];
    (void)std::snprintf(szTime, sizeof szTime, "%8u", static_cast<unsigned>(nTime));
    return szTime + ("  " + strText);
}

Outcome RunScenarioFile(const std::filesystem::path& Path, const RunOptions& Options,
                        const Printer& Print) {
    std::string strBytes;
    if (!ReadHostFile(Path, strBytes)) {
        Print(Path.string() + ": the file cannot be read\n");
        return Outcome::Broken;
    }
    return ScenarioRun(Path, Options, Print).Run(strBytes);
}

}  // namespace taviro::simulator
