// SPDX-License-Identifier: MIT
// The virtual desktop's file system: files and folders in memory, found without regard to case,
// with what befalls real ones (held by another program, read-only, full disk, power cut).
#pragma once

#include <cstddef>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace taviro::platform::headless {

class MemoryFiles {
  public:
    bool FileExists(std::wstring_view strPath) const;
    bool FolderExists(std::wstring_view strPath) const;
    /// One level; its parent must exist unless the path is a drive or relative root.
    bool CreateFolder(std::wstring_view strPath);
    /// Every level that is missing. For setting a scene up.
    void CreateFolders(std::wstring_view strPath);
    bool Read(std::wstring_view strPath, std::string& strBytes) const;
    /// Replaces the content whole or not at all; the folder must exist. What is written lies in the
    /// system's memory until it is flushed; names are on the disk at once.
    bool Write(std::wstring_view strPath, std::string_view strBytes);
    bool Append(std::wstring_view strPath, std::string_view strBytes);
    bool Move(std::wstring_view strFrom, std::wstring_view strTo);
    bool Remove(std::wstring_view strPath);
    /// Brings all of the file to the disk.
    bool Flush(std::wstring_view strPath);
    /// Names of the files that match "folder\pattern" with * and ?, sorted.
    std::vector<std::wstring> List(std::wstring_view strPattern) const;

    /// Puts a file there, flushed, with its folders. For setting a scene up.
    void Put(std::wstring_view strPath, std::string_view strBytes);
    /// While locked, a file cannot be read, written, moved or removed, as if another program held
    /// it.
    void Lock(std::wstring_view strPath, bool bLocked = true);
    bool IsLocked(std::wstring_view strPath) const;
    void SetReadOnly(std::wstring_view strPath, bool bReadOnly = true);
    bool IsReadOnly(std::wstring_view strPath) const;
    /// The power goes: of what was not flushed, half is lost, or all where that is one byte.
    void CutPower();
    /// Bytes that may still be written; the disk is full after them.
    size_t nFreeBytes = std::numeric_limits<size_t>::max();

  private:
    struct Node {
        std::wstring strName;
        std::string strBytes;
        size_t nFlushed = 0;  ///< bytes from the start that the disk has
        bool bFolder = false;
        bool bReadOnly = false;
        bool bLocked = false;
    };
    const Node* Find(std::wstring_view strPath) const;
    Node* Find(std::wstring_view strPath);
    bool MayStand(std::wstring_view strPath) const;

    std::map<std::wstring, Node, std::less<>> m_Nodes;  // by path in lower case
};

}  // namespace taviro::platform::headless
