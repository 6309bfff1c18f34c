// SPDX-License-Identifier: MIT
#include "tools/simulator/scene.h"

#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "tools/simulator/host_files.h"
#include "tools/simulator/scenario_run.h"

namespace taviro::simulator {

namespace {

using platform::headless::Desktop;

constexpr const wchar_t* DATA_FOLDER = L"\\Nordane\\Corvela\\v2.2\\taviro\\";
constexpr uint32_t FIRST_PROCESS = 1000;
constexpr uint32_t FIRST_THREAD = 2000;
constexpr platform::WindowHandle FIRST_WINDOW = 100;

std::wstring ProgramPath(const std::wstring& strFile) {
    return Desktop.strProgramFolder + L"\\" + strFile;
}

// The lines as a file of Taviro's: Windows-1250, every line ended.
std::string FileBytes(const std::vector<std::wstring>& Lines) {
    std::string strBytes;
    for (const std::wstring& strLine : Lines)
        strBytes += platform::ToAnsi(strLine) + "\r\n";
    return strBytes;
}

void CopyHostFile(ScenarioRun& Run, const Step& Given, const std::wstring& strTarget) {
    std::string strBytes;
    if (!ReadHostFile(HostPath(Run.Folder(), Given.Texts[1]), strBytes)) {
        Run.Break(Given, "the file \"" + platform::ToUtf8(Given.Texts[1]) + "\" cannot be read");
        return;
    }
    Desktop.Files.Put(strTarget, strBytes);
}

uint32_t ProcessOf(const std::wstring& strExecutable) {
    for (const auto& Running : Desktop.Processes) {
        if (Running.strExecutable == strExecutable) return Running.nProcessId;
    }
    const uint32_t nProcess = FIRST_PROCESS + static_cast<uint32_t>(Desktop.Processes.size());
    Desktop.Processes.push_back({nProcess, strExecutable});
    return nProcess;
}

}  // namespace

std::wstring DataPath(const std::wstring& strFile) {
    return Desktop.SpecialFolders[ROAMING_DATA_FOLDER] + DATA_FOLDER + strFile;
}

void SeedFrom(ScenarioRun& Run, const Step& Given) {
    std::vector<std::filesystem::path> Paths;
    if (!ListHostFiles(HostPath(Run.Folder(), Given.Texts[0]), Paths)) {
        Run.Break(Given, "the folder \"" + platform::ToUtf8(Given.Texts[0]) + "\" cannot be read");
        return;
    }
    for (const auto& Path : Paths) {
        std::string strBytes;
        if (!ReadHostFile(Path, strBytes)) {
            Run.Break(Given, "the file \"" + Path.string() + "\" cannot be read");
            return;
        }
        Desktop.Files.Put(ProgramPath(L"data\\" + FileNameOf(Path)), strBytes);
    }
}

void PutProgramFile(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.Files.Put(ProgramPath(Given.Texts[0]), FileBytes(Given.Block));
}

void CopyProgramFile(ScenarioRun& Run, const Step& Given) {
    CopyHostFile(Run, Given, ProgramPath(Given.Texts[0]));
}

void PutDataFile(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.Files.Put(DataPath(Given.Texts[0]), FileBytes(Given.Block));
}

void CopyDataFile(ScenarioRun& Run, const Step& Given) {
    CopyHostFile(Run, Given, DataPath(Given.Texts[0]));
}

void PutSettings(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.Files.Put(DataPath(L"setting.ini"), FileBytes(Given.Block));
}

void PutCommonMap(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.Files.Put(DataPath(L"data.ini"), FileBytes(Given.Block));
}

void PutAppMap(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.Files.Put(DataPath(L"data_" + Given.Texts[0] + L".ini"), FileBytes(Given.Block));
}

void LockDataFile(ScenarioRun& Run, const Step& Given) {
    if (!Desktop.Files.FileExists(DataPath(Given.Texts[0]))) {
        Run.Break(Given, "there is no such file yet");
        return;
    }
    Desktop.Files.Lock(DataPath(Given.Texts[0]));
}

void PutSound(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.Files.Put(ProgramPath(L"sound\\" + Given.Texts[0] + L".wav"), "RIFF");
}

void SetSoundLength(ScenarioRun& /*Run*/, const Step& Given) {
    Desktop.nSoundLength = static_cast<uint32_t>(Given.Numbers[0]);
}

void OpenWindow(ScenarioRun& /*Run*/, const Step& Given) {
    const size_t nCount = Desktop.Windows.size();
    const uint32_t nProcess = ProcessOf(Given.Texts[1]);
    Desktop.Windows.push_back({.hWindow = FIRST_WINDOW + nCount,
                               .strTitle = Given.Texts[0],
                               .strClass = Given.Texts.size() > 2 ? Given.Texts[2] : L"Window",
                               .nProcess = nProcess,
                               .nThread = nProcess - FIRST_PROCESS + FIRST_THREAD});
}

void PlugJoystick(ScenarioRun& /*Run*/, const Step& /*Given*/) {
    Desktop.Joystick.bPresent = true;
}

void UnplugJoystick(ScenarioRun& /*Run*/, const Step& /*Given*/) {
    Desktop.Joystick.bPresent = false;
}

void AddVoice(ScenarioRun& Run, const Step& Given) {
    Run.pStandIns->Voices.push_back(Given.Texts[0]);
}

void RemoveSpeech(ScenarioRun& /*Run*/, const Step& /*Given*/) {
    RemoveSpeechEngine();
}

void AddReader(ScenarioRun& /*Run*/, const Step& /*Given*/) {
    InstallReader();
}

void AddRelay(ScenarioRun& /*Run*/, const Step& /*Given*/) {
    InstallRelay();
}

void AddPrediction(ScenarioRun& Run, const Step& Given) {
    Run.pStandIns->Predictions.emplace_back(Given.Texts[0], Given.Texts[1]);
    InstallDictionary(Run.pStandIns);
}

void RunOtherInstance(ScenarioRun& /*Run*/, const Step& /*Given*/) {
    Desktop.bOtherInstance = true;
}

}  // namespace taviro::simulator
