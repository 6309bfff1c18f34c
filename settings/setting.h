// SPDX-License-Identifier: MIT
// All that the user can adjust, as properties of one object. Init fills them and the button table
// from setting.ini, SaveSetting writes them back; in between nobody touches the file. Settings that
// nothing consults any more (Delay, SndName, DefCursorButton, DefActionButton) are kept for the
// sake of existing files.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "settings/ini_file.h"

namespace taviro {

class cSetting {
  public:
    /// Reads every setting and the button table. A section that stands in the application file is
    /// taken whole from there, keys missing in it included; every other one from the default file.
    /// A missing key gives its default; a text that should be a number and is none leaves its
    /// property as it was.
    void Init(const std::wstring& sPathDefult, const std::wstring& sPathApp = {});

    // Setters store any value, unchecked, and leave the file alone.

    int32_t Log() const { return nLog; }  ///< 1: the event log is on
    void Log(int32_t nValue) { nLog = nValue; }
    int32_t CellHeight() const { return nCellHeight; }  ///< pixels
    void CellHeight(int32_t nValue) { nCellHeight = nValue; }
    int32_t CellWidth() const { return nCellWidth; }  ///< pixels
    void CellWidth(int32_t nValue) { nCellWidth = nValue; }
    int32_t CellTextSize() const { return nCellTextSize; }  ///< points
    void CellTextSize(int32_t nValue) { nCellTextSize = nValue; }
    int32_t ScanSizeX() const { return nScanSizeX; }  ///< columns that the highlight can reach
    void ScanSizeX(int32_t nValue) { nScanSizeX = nValue; }
    int32_t ScanDelay() const { return nScanDelay; }  ///< milliseconds
    void ScanDelay(int32_t nValue) { nScanDelay = nValue; }
    int32_t ScanSizeY() const { return nScanSizeY; }  ///< rows that the highlight can reach
    void ScanSizeY(int32_t nValue) { nScanSizeY = nValue; }
    const std::wstring& VoiceName() const { return strVoiceName; }
    void VoiceName(const std::wstring& strValue) { strVoiceName = strValue; }
    int32_t Pitch() const { return nPitch; }  ///< -10 to 10
    void Pitch(int32_t nValue) { nPitch = nValue; }
    int32_t Rate() const { return nRate; }  ///< -10 to 10
    void Rate(int32_t nValue) { nRate = nValue; }
    int32_t Volume() const { return nVolume; }  ///< 0 to 100
    void Volume(int32_t nValue) { nVolume = nValue; }
    int32_t DefCursorButton() const { return nDefCursorButton; }
    void DefCursorButton(int32_t nValue) { nDefCursorButton = nValue; }
    int32_t DefActionButton() const { return nDefActionButton; }
    void DefActionButton(int32_t nValue) { nDefActionButton = nValue; }
    int32_t ScanMode() const { return nScanMode; }  ///< 1: the mode button passes through scanning
    void ScanMode(int32_t nValue) { nScanMode = nValue; }
    int32_t RowWrap() const {
        return nRowWrap;
    }  ///< not 0: on; so are those down to TriggerRowReset
    void RowWrap(int32_t nValue) { nRowWrap = nValue; }
    int32_t ColumnWrap() const { return nColumnWrap; }
    void ColumnWrap(int32_t nValue) { nColumnWrap = nValue; }
    int32_t TriggerColumnReset() const { return nTriggerColumnReset; }
    void TriggerColumnReset(int32_t nValue) { nTriggerColumnReset = nValue; }
    int32_t TriggerRowReset() const { return nTriggerRowReset; }
    void TriggerRowReset(int32_t nValue) { nTriggerRowReset = nValue; }
    int32_t Delay() const { return nDelay; }
    void Delay(int32_t nValue) { nDelay = nValue; }
    const std::wstring& SndName() const { return strSndName; }
    /// Stores nothing: the name in the file is all that counts.
    void SndName(const std::wstring& /*strValue*/) {}
    int32_t VoiceOnLineChange() const { return nVoiceOnLineChange; }  ///< not 0: on
    void VoiceOnLineChange(int32_t nValue) { nVoiceOnLineChange = nValue; }

    /// Writes the settings and the button table to the default file, in one replacement, and not at
    /// all when nothing would change. Keys and lines that are not settings stay. Failures are
    /// ignored. When the file was there but could not be read at Init (held by another program, no
    /// permission), only what was changed since is written: the user's values are still in it.
    void SaveSetting();

  private:
    struct Row;               ///< one setting: its place, default, reading and saving
    static const Row Rows[];  ///< in the order of the keys in a file saved for the first time

    /// A file as Init found it.
    struct Source {
        bool bExists{};
        bool bUnreadable{};
        IniFile objFile;
    };

    static bool FileExists(const std::wstring& strPath);
    static Source Open(const std::wstring& strPath);
    static bool SectionExists(std::wstring_view strSection, const Source& objSource);
    static std::wstring ReadStringFromFile(std::wstring_view strSection, std::wstring_view strKey,
                                           std::wstring_view strDefault, const Source& objSource);
    static int32_t ReadIntFromFile(std::wstring_view strSection, std::wstring_view strKey,
                                   int32_t nDefault, const Source& objSource);
    std::wstring GetString(std::wstring_view strSection, std::wstring_view strKey,
                           std::wstring_view strDefault) const;
    int32_t GetInt(std::wstring_view strSection, std::wstring_view strKey,
                   std::wstring_view strDefault) const;

    void ReadRow(const Row& objRow);
    void ReadButtons() const;
    std::wstring TextToSave(const Row& objRow) const;
    std::vector<IniEntry> EntriesToSave() const;

    std::wstring strDefaultPath;
    Source objDefaultSource;  ///< both held while Init runs
    Source objAppSource;
    std::vector<IniEntry>
        UnreadEntries;  ///< after an Init that could not read: what it left behind

    int32_t nLog = 0;
    int32_t nCellHeight = 0;
    int32_t nCellWidth = 0;
    int32_t nCellTextSize = 0;
    int32_t nScanSizeX = 0;
    int32_t nScanDelay = 0;
    int32_t nScanSizeY = 0;
    std::wstring strVoiceName;
    int32_t nPitch = 0;
    int32_t nRate = 0;
    int32_t nVolume = 0;
    int32_t nDefCursorButton = 0;
    int32_t nDefActionButton = 0;
    int32_t nScanMode = 0;
    int32_t nRowWrap = 0;
    int32_t nColumnWrap = 0;
    int32_t nTriggerColumnReset = 0;
    int32_t nTriggerRowReset = 0;
    int32_t nDelay = 0;
    std::wstring strSndName;
    int32_t nVoiceOnLineChange = 0;
};

/// The program's settings, made afresh at start-up.
inline cSetting objSetting;

}  // namespace taviro
