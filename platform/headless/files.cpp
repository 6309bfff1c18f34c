// SPDX-License-Identifier: MIT
// The file contract over the virtual desktop's files in memory.
#include "platform/files.h"

#include "platform/failure.h"
#include "platform/file_steps.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"

namespace taviro::platform {

using headless::Desktop;

namespace {

// What cannot be done, ordered or because of how the files stand, is a failure on Windows too.
bool Reported(bool bDone, const char* szCall) {
    if (!bDone) ReportFailure(szCall, CODE_FAILED);
    return bDone;
}

bool Fails(const char* szCall, std::wstring_view strPath) {
    return Desktop.Failures.Fails(szCall, strPath);
}

const std::wstring& PathOf(FileHandle hFile) {
    return Desktop.WrittenFiles.at(hFile - 1);
}

bool IsHeld(const std::wstring& strPath) {
    if (!Desktop.Files.FileExists(strPath)) return false;
    return Desktop.Files.IsLocked(strPath) || Desktop.Holders.Holds(strPath, Desktop.nNow);
}

FileError ErrorUnless(bool bDone) {
    return bDone ? 0 : CODE_FAILED;
}

FileHandle HandleOf(const std::wstring& strPath) {
    Desktop.WrittenFiles.push_back(strPath);
    return Desktop.WrittenFiles.size();
}

}  // namespace

bool FileExists(const std::wstring& strPath) {
    return Desktop.Files.FileExists(strPath) && !Desktop.Refuses(__func__, strPath);
}

bool FolderExists(const std::wstring& strPath) {
    return Desktop.Files.FolderExists(strPath) && !Desktop.Refuses(__func__, strPath);
}

bool CreateFolder(const std::wstring& strPath) {
    Desktop.Record("create folder " + ToUtf8(strPath));
    return Reported(!Fails(__func__, strPath) && Desktop.Files.CreateFolder(strPath), __func__);
}

bool CopyFolderFiles(const std::wstring& strFromFolder, const std::wstring& strToFolder) {
    Desktop.Record("copy " + ToUtf8(strFromFolder) + "\\*.* to " + ToUtf8(strToFolder));
    const std::wstring strFrom = strFromFolder + L"\\";
    const std::wstring strTo = strToFolder + L"\\";
    bool bDone = Reported(Desktop.Files.FolderExists(strFromFolder), __func__);
    for (const std::wstring& strName : Desktop.Files.List(strFrom + L"*"))
        bDone = bDone && CopyInSpiteOfHolders(strFrom + strName, strTo + strName);
    return bDone;
}

bool ReadFileBytes(const std::wstring& strPath, std::string& strBytes) {
    return ReadInSpiteOfHolders(strPath, strBytes);
}

FileError ReadWholeFile(const std::wstring& strPath, std::string& strBytes) {
    if (!Desktop.Files.FileExists(strPath)) return FILE_NOT_FOUND;
    if (IsHeld(strPath)) return FILE_SHARING_VIOLATION;
    return ErrorUnless(!Fails("ReadFileBytes", strPath) && Desktop.Files.Read(strPath, strBytes));
}

FileError CopyOneFile(const std::wstring& strFrom, const std::wstring& strTo) {
    if (IsHeld(strFrom) || IsHeld(strTo)) return FILE_SHARING_VIOLATION;
    std::string strBytes;
    const bool bDone = !Fails("CopyFolderFiles", strFrom) &&
                       Desktop.Files.Read(strFrom, strBytes) &&
                       Desktop.Files.Write(strTo, strBytes);
    if (bDone) Desktop.Holders.Take(strTo, Desktop.nNow);
    return ErrorUnless(bDone);
}

FileError CreateNewFile(const std::wstring& strPath, FileHandle& hFile) {
    if (IsHeld(strPath)) return FILE_SHARING_VIOLATION;
    if (Fails(__func__, strPath) || !Desktop.Files.Write(strPath, "")) return CODE_FAILED;
    hFile = HandleOf(strPath);
    return 0;
}

FileError OpenToAppend(const std::wstring& strPath, FileHandle& hFile) {
    if (IsHeld(strPath)) return FILE_SHARING_VIOLATION;
    if (Fails("AppendFileBytes", strPath) || !Desktop.Files.Append(strPath, "")) return CODE_FAILED;
    hFile = HandleOf(strPath);
    return 0;
}

bool WriteToFile(FileHandle hFile, std::string_view strBytes) {
    return Reported(
        !Fails(__func__, PathOf(hFile)) && Desktop.Files.Append(PathOf(hFile), strBytes), __func__);
}

bool FlushFile(FileHandle hFile) {
    return Reported(!Fails(__func__, PathOf(hFile)) && Desktop.Files.Flush(PathOf(hFile)),
                    __func__);
}

void CloseFile(FileHandle hFile) {
    Desktop.Holders.Take(PathOf(hFile), Desktop.nNow);
}

FileError RenameFile(const std::wstring& strFrom, const std::wstring& strTo) {
    if (IsHeld(strFrom)) return FILE_SHARING_VIOLATION;
    if (IsHeld(strTo)) return FILE_ACCESS_DENIED;
    if (Fails(__func__, strTo) || !Desktop.Files.Move(strFrom, strTo)) return CODE_FAILED;
    Desktop.Holders.Take(strTo, Desktop.nNow);
    return 0;
}

FileError RemoveFile(const std::wstring& strPath) {
    if (!Desktop.Files.FileExists(strPath)) return FILE_NOT_FOUND;
    if (IsHeld(strPath)) return FILE_SHARING_VIOLATION;
    return ErrorUnless(!Fails(__func__, strPath) && Desktop.Files.Remove(strPath));
}

bool IsReadOnly(const std::wstring& strPath) {
    return Desktop.Files.IsReadOnly(strPath);
}

std::wstring TemporaryName(const std::wstring& strPath) {
    return strPath + L".1-" + std::to_wstring(Desktop.WrittenFiles.size() + 1) + L".new";
}

bool ReplaceFileBytes(const std::wstring& strPath, std::string_view strBytes) {
    const bool bDone = !Desktop.Refuses(__func__, strPath) && ReplaceInSteps(strPath, strBytes);
    Desktop.Record((bDone ? "save " : "cannot save ") + ToUtf8(strPath));
    return bDone;
}

bool AppendFileBytes(const std::wstring& strPath, std::string_view strBytes) {
    const bool bDone = AppendInSteps(strPath, strBytes);
    Desktop.Record((bDone ? "append to " : "cannot append to ") + ToUtf8(strPath));
    return bDone;
}

bool MoveFileTo(const std::wstring& strFrom, const std::wstring& strTo) {
    const bool bDone = !Desktop.Refuses(__func__, strFrom) && MoveInSpiteOfHolders(strFrom, strTo);
    Desktop.Record((bDone ? "move " : "cannot move ") + ToUtf8(strFrom) + " to " + ToUtf8(strTo));
    return bDone;
}

std::vector<std::wstring> ListFiles(const std::wstring& strPattern) {
    if (Desktop.Refuses(__func__, strPattern)) return {};
    return Desktop.Files.List(strPattern);
}

}  // namespace taviro::platform
