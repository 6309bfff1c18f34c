// SPDX-License-Identifier: MIT
#include "forms/main_form.h"

namespace taviro::forms {

namespace {
// Design-time sizes in pixels; the map's layout moves Label1 and sets its width.
constexpr int32_t STATUS_LINE_HEIGHT = 20;
constexpr int32_t CHOICE_LIST_WIDTH = 160;
constexpr int32_t CHOICE_LIST_HEIGHT = 96;
constexpr int32_t COMMAND_BOX_WIDTH = 65;
constexpr int32_t COMMAND_BOX_HEIGHT = 20;

const Font STATUS_FONT{.strName = L"Arial", .nSize = 10, .bBold = true};
}  // namespace

MainForm::MainForm() : Form(L"FrmMain") {
    Caption = L"Taviro";
    Label1.Height = STATUS_LINE_HEIGHT;
    Label1.TextFont = STATUS_FONT;
    List1.Width = CHOICE_LIST_WIDTH;
    List1.Height = CHOICE_LIST_HEIGHT;
    txtCmd.Width = COMMAND_BOX_WIDTH;
    txtCmd.Height = COMMAND_BOX_HEIGHT;
    txtCmd.Visible = false;  // for other programs, which find hidden controls too; not for the user

    mnuApplication.Entries = {&mnuOpenMap, &mnuExit};
    mnuSettingGroup.Entries = {&mnuSettings, &mnuSettingApp, &mnuVoice, &mnuLog};
    mnuHelp.Entries = {&mnuAbout, &mnuHelpOpen};
}

Label* MainForm::CellLabel(int32_t nIndex) {
    if (nIndex < 1 || nIndex >= CELL_LABEL_COUNT) return nullptr;
    return m_lblControl[static_cast<size_t>(nIndex)].get();
}

Label* MainForm::CreateCellLabel(int32_t nIndex) {
    if (nIndex < 1 || nIndex >= CELL_LABEL_COUNT) return nullptr;
    auto& pLabel = m_lblControl[static_cast<size_t>(nIndex)];
    if (!pLabel) pLabel = std::make_unique<Label>(*this, L"lblControl" + std::to_wstring(nIndex));
    return pLabel.get();
}

}  // namespace taviro::forms
