// SPDX-License-Identifier: MIT
// The file contract over the virtual desktop's files in memory.
#include "platform/files.h"

#include "platform/headless/desktop.h"
#include "platform/text.h"

namespace taviro::platform {

using headless::Desktop;

bool FileExists(const std::wstring& strPath) {
    return Desktop.Files.FileExists(strPath);
}

bool FolderExists(const std::wstring& strPath) {
    return Desktop.Files.FolderExists(strPath);
}

bool CreateFolder(const std::wstring& strPath) {
    Desktop.Record("create folder " + ToUtf8(strPath));
    return Desktop.Files.CreateFolder(strPath);
}

bool CopyFolderFiles(const std::wstring& strFromFolder, const std::wstring& strToFolder) {
    Desktop.Record("copy " + ToUtf8(strFromFolder) + "\\*.* to " + ToUtf8(strToFolder));
    const std::wstring strFrom = strFromFolder + L"\\";
    const std::wstring strTo = strToFolder + L"\\";
    for (const std::wstring& strName : Desktop.Files.List(strFrom + L"*")) {
        std::string strBytes;
        if (!Desktop.Files.Read(strFrom + strName, strBytes)) return false;
        if (!Desktop.Files.Write(strTo + strName, strBytes)) return false;
    }
    return Desktop.Files.FolderExists(strFromFolder);
}

bool ReadFileBytes(const std::wstring& strPath, std::string& strBytes) {
    return Desktop.Files.Read(strPath, strBytes);
}

bool ReplaceFileBytes(const std::wstring& strPath, std::string_view strBytes) {
    const bool bDone = Desktop.Files.Write(strPath, strBytes);
    Desktop.Record((bDone ? "save " : "cannot save ") + ToUtf8(strPath));
    return bDone;
}

bool AppendFileBytes(const std::wstring& strPath, std::string_view strBytes) {
    const bool bDone = Desktop.Files.Append(strPath, strBytes);
    Desktop.Record((bDone ? "append to " : "cannot append to ") + ToUtf8(strPath));
    return bDone;
}

bool MoveFileTo(const std::wstring& strFrom, const std::wstring& strTo) {
    const bool bDone = Desktop.Files.Move(strFrom, strTo);
    Desktop.Record((bDone ? "move " : "cannot move ") + ToUtf8(strFrom) + " to " + ToUtf8(strTo));
    return bDone;
}

std::vector<std::wstring> ListFiles(const std::wstring& strPattern) {
    return Desktop.Files.List(strPattern);
}

}  // namespace taviro::platform
