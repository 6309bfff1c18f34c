// SPDX-License-Identifier: MIT
#include "tools/effort/measured_run.h"

#include <algorithm>
#include <iterator>

#include "core/program_reset.h"
#include "core/startup.h"
#include "forms/main_form.h"
#include "platform/headless/desktop.h"
#include "platform/main_window.h"
#include "platform/text.h"
#include "platform/unneeded.h"

namespace taviro::effort {

namespace {

using platform::headless::Desktop;

const std::wstring PROGRAM_DATA = L"C:\\Program Files\\Taviro\\data\\";
const std::wstring USER_DATA =
    L"C:\\Users\\Jana\\AppData\\Roaming\\Nordane\\Corvela\\v2.2\\taviro\\";

struct PlainSign {
    wchar_t nSign;
    const wchar_t* szPlain;
};
constexpr PlainSign PLAIN_SIGNS[] = {{L'–', L"-"},  {L'—', L"-"},  {L'„', L"\""},
                                     {L'“', L"\""}, {L'”', L"\""}, {L'…', L"..."}};

}  // namespace

void PrepareDesktop(std::string_view strMapFile, std::string_view strSettings) {
    Desktop = platform::headless::DesktopState{};
    Desktop.bRecording = false;
    ResetProgram();
    Desktop.Files.Put(PROGRAM_DATA + L"data.ini", strMapFile);
    Desktop.Files.Put(USER_DATA + L"data.ini", strMapFile);
    if (!strSettings.empty()) Desktop.Files.Put(USER_DATA + L"setting.ini", strSettings);
}

void OpenProgram() {
    Unneeded(platform::OpenMainWindow(*forms::FrmMain));  // the virtual desktop never refuses
    Main();
}

void CloseProgram() {
    forms::FrmMain->Unload();
    platform::CloseMainWindow();
}

std::string ArrivalError(const std::wstring& strWanted) {
    if (Desktop.Keyboard.strTyped == strWanted) return {};
    return "another text arrived: " + platform::ToUtf8(Desktop.Keyboard.strTyped);
}

std::wstring WithPlainSigns(std::wstring_view strText) {
    std::wstring strPlain;
    for (const wchar_t nCharacter : strText) {
        const auto it =
            std::find_if(std::begin(PLAIN_SIGNS), std::end(PLAIN_SIGNS),
                         [&](const PlainSign& Sign) { return Sign.nSign == nCharacter; });
        strPlain += it == std::end(PLAIN_SIGNS) ? std::wstring(1, nCharacter) : it->szPlain;
    }
    return strPlain;
}

}  // namespace taviro::effort
