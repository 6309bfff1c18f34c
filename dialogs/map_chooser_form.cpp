// SPDX-License-Identifier: MIT
#include "dialogs/map_chooser_form.h"

#include <string>
#include <string_view>
#include <vector>

#include "maps/shown_map.h"
#include "platform/files.h"
#include "platform/main_window.h"
#include "platform/metrics.h"
#include "platform/text.h"
#include "platform/windows_and_processes.h"
#include "state/program_state.h"

namespace taviro {

namespace {

using platform::Metric;
using platform::SystemMetric;

constexpr std::wstring_view FILE_START = L"data";
constexpr std::wstring_view NAME_PREFIX = L"data_";
constexpr std::wstring_view FILE_END = L".ini";

// The system's search also goes by short names, under which "data.inix" ends with ".INI".
bool IsMapFile(const std::wstring& strFile) {
    const std::wstring strName = platform::ToLower(strFile);
    return strName.starts_with(FILE_START) && strName.ends_with(FILE_END);
}

// Each occurrence goes, wherever it stands; what closes up is not searched again.
std::wstring Without(std::wstring strText, std::wstring_view strPart) {
    for (auto n = strText.find(strPart); n != std::wstring::npos; n = strText.find(strPart, n))
        strText.erase(n, strPart.size());
    return strText;
}

// The application's name in a map file's; for the common map's file this is "data".
std::wstring AppNameOf(const std::wstring& strFile) {
    return Without(Without(platform::ToLower(strFile), NAME_PREFIX), FILE_END);
}

}  // namespace

MapChooserForm::MapChooserForm() : Form(L"frmMap") {
    OnLoad = [this] {
        Place();
        FillFiles();
    };
    Command1.OnClick = [this] { ShowSelected(); };
    File1.OnDblClick = [this] { ShowSelected(); };
}

// Over the main window's inner area, so that the list stands where the map was.
void MapChooserForm::Place() {
    platform::ScreenRect Main;
    if (!platform::WindowRect(platform::MainWindowHandle(), Main)) {
        Left = forms::UNPLACED;
        Top = forms::UNPLACED;
        return;
    }
    Left = (Main.nLeft + SystemMetric(Metric::BorderWidth)) * platform::TwipsPerPixelX();
    const int32_t nAbove = SystemMetric(Metric::BorderHeight) +
                           SystemMetric(Metric::CaptionHeight) + SystemMetric(Metric::MenuHeight);
    Top = (Main.nTop + nAbove) * platform::TwipsPerPixelY();
}

void MapChooserForm::FillFiles() {
    std::vector<std::wstring> Files = platform::ListFiles(Program.strDataPath + L"\\data*.ini");
    std::erase_if(Files, [](const std::wstring& strFile) { return !IsMapFile(strFile); });
    File1.Items = Files;
    Command1.Enabled = File1.Select(0);
}

void MapChooserForm::ShowSelected() {
    if (File1.ListIndex < 0) return;
    // "data_.ini" leaves no name, and a map without one is the common map.
    ShowPickedMap(AppNameOf(File1.SelectedText()));
    Unload();
}

}  // namespace taviro
