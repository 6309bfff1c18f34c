// SPDX-License-Identifier: MIT
#include "platform/file_steps.h"

#include "platform/failure.h"
#include "platform/unneeded.h"

namespace taviro::platform {

namespace {

// The flush comes before the rename: else a power cut could leave the new name with nothing in it.
bool WriteNewFile(const std::wstring& strPath, std::string_view strBytes) {
    const FileHandle hFile = CreateNewFile(strPath);
    if (hFile == 0) return false;
    const bool bDone = WriteToFile(hFile, strBytes) && FlushFile(hFile);
    CloseFile(hFile);
    return bDone;
}

}  // namespace

bool ReplaceInSteps(const std::wstring& strPath, std::string_view strBytes) {
    // Asked for first: not every system refuses to replace a file that its owner marked read-only.
    if (IsReadOnly(strPath)) {
        ReportFailure("replacing a read-only file", CODE_ACCESS_DENIED);
        return false;
    }
    const std::wstring strTemporary = TemporaryName(strPath);
    if (WriteNewFile(strTemporary, strBytes) && RenameFile(strTemporary, strPath)) return true;
    // Nothing more can be done where even this fails; the old file is whole all the same.
    Unneeded(RemoveFile(strTemporary));
    return false;
}

}  // namespace taviro::platform
