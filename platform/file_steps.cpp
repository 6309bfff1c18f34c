// SPDX-License-Identifier: MIT
#include "platform/file_steps.h"

#include <algorithm>

#include "platform/clock.h"
#include "platform/failure.h"
#include "platform/unneeded.h"

namespace taviro::platform {

namespace {

enum class FileUse { Reading, Changing };

constexpr uint32_t PATIENCE_MS = 500;  // scanners and backups let go sooner
constexpr uint32_t PAUSE_MS = 50;

bool MayBeHeld(FileError nError, FileUse nUse) {
    switch (nError) {
        case FILE_SHARING_VIOLATION:
        case FILE_LOCK_VIOLATION:
            return true;
        // So the system refuses to replace or delete what somebody holds. Refused for reading it is
        // a matter of rights, which waiting does not give.
        case FILE_ACCESS_DENIED:
        case FILE_MAPPED_BY_OTHERS:
            return nUse == FileUse::Changing;
        default:
            return false;
    }
}

/// Half a second for all steps of one undertaking together.
class Patience {
  public:
    explicit Patience(FileUse nUse) : m_nUse(nUse) {}

    /// Tries a step until it is done, or fails for another reason than that the file is held, or
    /// the time is over.
    template <class Step>
    FileError Try(Step Do) {
        FileError nError = Do();
        while (MayBeHeld(nError, m_nUse) && Waits())
            nError = Do();
        return nError;
    }

    template <class Step>
    bool TryOrReport(const char* szStep, Step Do) {
        const FileError nError = Try(Do);
        if (nError != 0) ReportFailure(szStep, nError);
        return nError == 0;
    }

  private:
    bool Waits() {
        if (m_nLeftMs == 0) return false;
        const uint32_t nPause = std::min(PAUSE_MS, m_nLeftMs);
        SleepMs(nPause);
        m_nLeftMs -= nPause;
        return true;
    }

    FileUse m_nUse;
    uint32_t m_nLeftMs = PATIENCE_MS;
};

// The flush comes before the rename: else a power cut could leave the new name with nothing in it.
bool WriteNewFile(const std::wstring& strPath, std::string_view strBytes, Patience& Saving) {
    FileHandle hFile = 0;
    const auto Create = [&] { return CreateNewFile(strPath, hFile); };
    if (!Saving.TryOrReport("CreateNewFile", Create)) return false;
    const bool bDone = WriteToFile(hFile, strBytes) && FlushFile(hFile);
    CloseFile(hFile);
    return bDone;
}

bool Rename(const std::wstring& strFrom, const std::wstring& strTo, Patience& Waiting) {
    return Waiting.TryOrReport("RenameFile", [&] { return RenameFile(strFrom, strTo); });
}

// With patience of its own: what is left behind would lie there for good.
void RemoveLeftOver(const std::wstring& strPath) {
    const FileError nError = Patience(FileUse::Changing).Try([&] { return RemoveFile(strPath); });
    if (nError != 0 && !IsAbsent(nError)) ReportFailure("RemoveFile", nError);
}

}  // namespace

bool IsAbsent(FileError nError) {
    return nError == FILE_NOT_FOUND || nError == FILE_PATH_NOT_FOUND ||
           nError == FILE_INVALID_NAME || nError == FILE_BAD_PATH_NAME;
}

bool ReplaceInSteps(const std::wstring& strPath, std::string_view strBytes) {
    // Asked for first: not every system refuses to replace a file that its owner marked read-only.
    if (IsReadOnly(strPath)) {
        ReportFailure("replacing a read-only file", CODE_ACCESS_DENIED);
        return false;
    }
    Patience Saving(FileUse::Changing);
    const std::wstring strTemporary = TemporaryName(strPath);
    if (WriteNewFile(strTemporary, strBytes, Saving) && Rename(strTemporary, strPath, Saving)) {
        return true;
    }
    RemoveLeftOver(strTemporary);
    return false;
}

bool AppendInSteps(const std::wstring& strPath, std::string_view strBytes) {
    FileHandle hFile = 0;
    const auto Open = [&] { return OpenToAppend(strPath, hFile); };
    if (!Patience(FileUse::Changing).TryOrReport("AppendFileBytes", Open)) return false;
    const bool bDone = WriteToFile(hFile, strBytes);
    CloseFile(hFile);
    return bDone;
}

bool ReadInSpiteOfHolders(const std::wstring& strPath, std::string& strBytes) {
    const FileError nError =
        Patience(FileUse::Reading).Try([&] { return ReadWholeFile(strPath, strBytes); });
    if (nError != 0 && !IsAbsent(nError)) ReportFailure("ReadFileBytes", nError);
    return nError == 0;
}

bool MoveInSpiteOfHolders(const std::wstring& strFrom, const std::wstring& strTo) {
    Patience Moving(FileUse::Changing);
    return Rename(strFrom, strTo, Moving);
}

bool CopyInSpiteOfHolders(const std::wstring& strFrom, const std::wstring& strTo) {
    return Patience(FileUse::Changing).TryOrReport("CopyFolderFiles", [&] {
        return CopyOneFile(strFrom, strTo);
    });
}

}  // namespace taviro::platform
