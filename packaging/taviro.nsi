# SPDX-License-Identifier: MIT
# The installer: for one user, without an administrator; it carries the programs for x64 and x86.
#
# A version is unpacked whole into ${NEW} and only then moved into place, file by file, each in one
# step, the program at the end: whatever interrupts it, what is there starts. Nothing of the user's is
# touched: his maps and settings lie elsewhere, and sounds or delivered maps that he replaced in the
# program's folder stay, known by their time, which differs from the delivered files'.
#
# make_packages.py passes the names and texts, and makes ${FILES}, which goes through the files.
Target ${STUB}
SetCompressor /SOLID /FINAL ${COMPRESSION}
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS all

!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include nsDialogs.nsh
!include TextFunc.nsh
!include WinVer.nsh
!include x64.nsh

!define NEW "~new"
!define LIST "files.txt"
!define MUTEX "Local\Taviro" # held by the running program
!define SETUP_MUTEX "Local\TaviroSetup" # held by a running installer
!define ERROR_ALREADY_EXISTS 183
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${TITLE}"
!define USER_FOLDER "$APPDATA\Nordane\Corvela\v2.2\taviro"
!define WORDS_FOLDER "$APPDATA\Nordane\Corvela\v2.2\presager"
!define SPARE_KILOBYTES 1024 # beside the files themselves: folders, shortcut, uninstaller
!define TIMES_IN_USE 10 # looks at a file that is in use, and the milliseconds between them
!define PAUSE_IN_USE 200

# What the installer and the uninstaller end with; docs/packaging.md has the list.
!define EXIT_RUNNING 3
!define EXIT_NO_ROOM 4
!define EXIT_NO_WRITING 5
!define EXIT_OLD_SYSTEM 6
!define EXIT_WRONG_SWITCH 7

Name "${TITLE}"
OutFile "${TARGET}"
BrandingText "${TITLE} ${VERSION}"
InstallDir "$LOCALAPPDATA\Programs\${TITLE}"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey /LANG=1029 "ProductName" "${TITLE}"
VIAddVersionKey /LANG=1029 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1029 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1029 "FileDescription" "Instalace programu ${TITLE}"
VIAddVersionKey /LANG=1029 "Comments" "${COMMENTS}"
VIAddVersionKey /LANG=1029 "CompanyName" "${MAKER}"
VIAddVersionKey /LANG=1029 "LegalCopyright" "${COPYRIGHT}"

Var Platform  # x64 or x86
Var InStartMenu # BST_CHECKED or BST_UNCHECKED
Var Autostart
Var StartMenuBox
Var AutostartBox
Var ExitCode  # of a failure that was already told, else 0
Var File      # relative to the program's folder
Var TimeHigh  # of the delivered files of the version that is there; empty when there is none
Var TimeLow
Var NewTimeHigh # of those that are being installed
Var NewTimeLow

!include "${FILES}"
!include "texts.nsh"
!include "taviro_pages.nsh"
!include "shared.nsh"
!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."
!include "starting.nsh"
!include "installing.nsh"
!include "uninstalling.nsh"
