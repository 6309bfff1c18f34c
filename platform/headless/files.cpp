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

bool CopyFile(const std::wstring& strFrom, const std::wstring& strTo) {
    std::string strBytes;
    return !Fails("CopyFolderFiles", strFrom) && Desktop.Files.Read(strFrom, strBytes) &&
           Desktop.Files.Write(strTo, strBytes);
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
    bool bDone = Desktop.Files.FolderExists(strFromFolder);
    for (const std::wstring& strName : Desktop.Files.List(strFrom + L"*"))
        bDone = bDone && CopyFile(strFrom + strName, strTo + strName);
    return Reported(bDone, __func__);
}

bool ReadFileBytes(const std::wstring& strPath, std::string& strBytes) {
    if (!Desktop.Files.FileExists(strPath)) return false;  // an answer, no failure
    return Reported(!Fails(__func__, strPath) && Desktop.Files.Read(strPath, strBytes), __func__);
}

FileHandle CreateNewFile(const std::wstring& strPath) {
    const bool bDone = !Fails(__func__, strPath) && Desktop.Files.Write(strPath, "");
    if (!Reported(bDone, __func__)) return 0;
    Desktop.WrittenFiles.push_back(strPath);
    return Desktop.WrittenFiles.size();
}

bool WriteToFile(FileHandle hFile, std::string_view strBytes) {
    return Reported(
        !Fails(__func__, PathOf(hFile)) && Desktop.Files.Append(PathOf(hFile), strBytes), __func__);
}

bool FlushFile(FileHandle hFile) {
    return Reported(!Fails(__func__, PathOf(hFile)) && Desktop.Files.Flush(PathOf(hFile)),
                    __func__);
}

void CloseFile(FileHandle /*hFile*/) {}

bool RenameFile(const std::wstring& strFrom, const std::wstring& strTo) {
    return Reported(!Fails(__func__, strTo) && Desktop.Files.Move(strFrom, strTo), __func__);
}

bool RemoveFile(const std::wstring& strPath) {
    if (!Desktop.Files.FileExists(strPath)) return false;  // an answer, no failure
    return Reported(!Fails(__func__, strPath) && Desktop.Files.Remove(strPath), __func__);
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
    const bool bDone = !Fails(__func__, strPath) && Desktop.Files.Append(strPath, strBytes);
    Desktop.Record((bDone ? "append to " : "cannot append to ") + ToUtf8(strPath));
    return Reported(bDone, __func__);
}

bool MoveFileTo(const std::wstring& strFrom, const std::wstring& strTo) {
    const bool bDone = !Fails(__func__, strFrom) && Desktop.Files.Move(strFrom, strTo);
    Desktop.Record((bDone ? "move " : "cannot move ") + ToUtf8(strFrom) + " to " + ToUtf8(strTo));
    return Reported(bDone, __func__);
}

std::vector<std::wstring> ListFiles(const std::wstring& strPattern) {
    if (Desktop.Refuses(__func__, strPattern)) return {};
    return Desktop.Files.List(strPattern);
}

}  // namespace taviro::platform
