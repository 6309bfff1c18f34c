// SPDX-License-Identifier: MIT
// The numbers of the dialogs' controls, by name, for the forms and for their layouts. A name that
// several dialogs have has one number.
#pragma once

// Buttons that the dialog manager knows: Enter and Escape press them.
#define IDC_cmdOK 1
#define IDC_cmdCancel 2
// About.
#define IDC_lblTitle 100
#define IDC_lblCommets 101
#define IDC_lblVersion 102
#define IDC_txtCopyright 103
// Settings of the program.
#define IDC_chkScanMode 110
#define IDC_chkVoiceOnLineChange 111
#define IDC_chkTriggerRowReset 112
#define IDC_chkTriggerColumnReset 113
#define IDC_chkColumnWrap 114
#define IDC_chkRowWrap 115
#define IDC_ComboScanX 116
#define IDC_ComboScanY 117
#define IDC_ComboTextSize 118
#define IDC_ComboCellWidth 119
#define IDC_ComboCellHeight 120
#define IDC_Combo1 121
#define IDC_txtActionButton 122
#define IDC_Text2 123
// Voice.
#define IDC_VoiceList 130
#define IDC_HScroll_Rate 131
#define IDC_HScroll_Volume 132
#define IDC_HScroll_Pitch 133
#define IDC_Frame_List 134
#define IDC_Frame_Rate 135
#define IDC_Frame_Vol 136
#define IDC_Frame_Pitch 137
#define IDC_lblList 138
#define IDC_lbl_Rate 139
#define IDC_lbl_Vol 140
#define IDC_lbl_Pitch 141
#define IDC_Text1 142
#define IDC_Command1 143
#define IDC_Command2 144
#define IDC_Command3 145
// Cell and button.
#define IDC_ComboX 160
#define IDC_ComboY 161
#define IDC_Text4 162
#define IDC_Text3 163
#define IDC_ChkResetColumnOnAction 164
#define IDC_ComboKey 165
#define IDC_chkSHIFT 166
#define IDC_chkCTRL 167
#define IDC_chkALT 168
#define IDC_chkWin 169
#define IDC_lblCode 170
// Groups of options: an option's number is the group's and its index.
#define IDC_OptSetMode 180
#define IDC_OptionType 190
// Map chooser.
#define IDC_File1 200

// Labels that no code names.
#define IDC_LABEL (-1)
