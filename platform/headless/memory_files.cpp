// SPDX-License-Identifier: MIT
#include "platform/headless/memory_files.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace taviro::platform::headless {

namespace {

std::wstring_view ParentOf(std::wstring_view strPath) {
    const auto nSlash = strPath.rfind(L'\\');
    return nSlash == std::wstring_view::npos ? std::wstring_view{} : strPath.substr(0, nSlash);
}

std::wstring_view NameOf(std::wstring_view strPath) {
    const auto nSlash = strPath.rfind(L'\\');
    return nSlash == std::wstring_view::npos ? strPath : strPath.substr(nSlash + 1);
}

// A drive ("C:"), the root of the current one, or nothing: always there.
bool IsRoot(std::wstring_view strPath) {
    return strPath.empty() || strPath.back() == L':';
}

// A letter that a code page lacks becomes "?" in it, and no file of a real system is called so.
bool IsName(std::wstring_view strName) {
    return !strName.empty() && strName.find_first_of(L"?*\"<>|") == std::wstring_view::npos;
}

bool Matches(std::wstring_view strName, std::wstring_view strPattern) {
    if (strPattern.empty()) return strName.empty();
    if (strPattern.front() == L'*') {
        for (size_t n = 0; n <= strName.size(); ++n) {
            if (Matches(strName.substr(n), strPattern.substr(1))) return true;
        }
        return false;
    }
    if (strName.empty()) return false;
    if (strPattern.front() != L'?' && strPattern.front() != strName.front()) return false;
    return Matches(strName.substr(1), strPattern.substr(1));
}

// The name that old programs know a file by: eight characters and an extension of three. The
// system's search goes by it as well, so "*.ini" finds "long.inix".
std::wstring ShortName(const std::wstring& strName) {
    const auto nDot = std::min(strName.rfind(L'.'), strName.size());
    const std::wstring strBase = strName.substr(0, nDot);
    const std::wstring strEnd = strName.substr(nDot);
    if (strBase.size() <= 8 && strEnd.size() <= 4) return strName;
    return strBase.substr(0, 6) + L"~1" + strEnd.substr(0, 4);
}

bool IsFoundBy(const std::wstring& strName, std::wstring_view strPattern) {
    return Matches(strName, strPattern) || Matches(ShortName(strName), strPattern);
}

}  // namespace

const MemoryFiles::Node* MemoryFiles::Find(std::wstring_view strPath) const {
    const auto it = m_Nodes.find(ToLower(strPath));
    return it == m_Nodes.end() ? nullptr : &it->second;
}

MemoryFiles::Node* MemoryFiles::Find(std::wstring_view strPath) {
    const auto it = m_Nodes.find(ToLower(strPath));
    return it == m_Nodes.end() ? nullptr : &it->second;
}

bool MemoryFiles::FileExists(std::wstring_view strPath) const {
    const Node* pNode = Find(strPath);
    return pNode != nullptr && !pNode->bFolder;
}

bool MemoryFiles::FolderExists(std::wstring_view strPath) const {
    if (IsRoot(strPath)) return true;
    const Node* pNode = Find(strPath);
    return pNode != nullptr && pNode->bFolder;
}

bool MemoryFiles::CreateFolder(std::wstring_view strPath) {
    if (Find(strPath) != nullptr || !FolderExists(ParentOf(strPath))) return false;
    if (!IsName(NameOf(strPath))) return false;
    Node& Folder = m_Nodes[ToLower(strPath)];
    Folder.strName = NameOf(strPath);
    Folder.bFolder = true;
    return true;
}

void MemoryFiles::CreateFolders(std::wstring_view strPath) {
    if (FolderExists(strPath)) return;
    CreateFolders(ParentOf(strPath));
    CreateFolder(strPath);
}

bool MemoryFiles::Read(std::wstring_view strPath, std::string& strBytes) const {
    const Node* pNode = Find(strPath);
    if (pNode == nullptr || pNode->bFolder || pNode->bLocked) return false;
    strBytes = pNode->strBytes;
    return true;
}

bool MemoryFiles::MayStand(std::wstring_view strPath) const {
    if (!FolderExists(ParentOf(strPath)) || !IsName(NameOf(strPath))) return false;
    const Node* pNode = Find(strPath);
    return pNode == nullptr || (!pNode->bFolder && !pNode->bLocked && !pNode->bReadOnly);
}

bool MemoryFiles::Write(std::wstring_view strPath, std::string_view strBytes) {
    if (!MayStand(strPath) || strBytes.size() > nFreeBytes) return false;
    Node& File = m_Nodes[ToLower(strPath)];
    if (File.strName.empty()) File.strName = NameOf(strPath);
    File.strBytes = strBytes;
    File.nFlushed = 0;
    return true;
}

bool MemoryFiles::Append(std::wstring_view strPath, std::string_view strBytes) {
    std::string strWhole;
    size_t nFlushed = 0;
    if (const Node* pNode = Find(strPath)) nFlushed = pNode->nFlushed;
    if (FileExists(strPath) && !Read(strPath, strWhole)) return false;
    if (!Write(strPath, strWhole.append(strBytes))) return false;
    Find(strPath)->nFlushed = nFlushed;
    return true;
}

bool MemoryFiles::Move(std::wstring_view strFrom, std::wstring_view strTo) {
    const Node* pFrom = Find(strFrom);
    if (pFrom == nullptr || pFrom->bFolder || pFrom->bLocked || !MayStand(strTo)) return false;
    Node Moved = *pFrom;
    Moved.strName = NameOf(strTo);
    m_Nodes.erase(ToLower(strFrom));
    m_Nodes[ToLower(strTo)] = std::move(Moved);
    return true;
}

bool MemoryFiles::Remove(std::wstring_view strPath) {
    const Node* pNode = Find(strPath);
    if (pNode == nullptr || pNode->bFolder || pNode->bLocked) return false;
    m_Nodes.erase(ToLower(strPath));
    return true;
}

bool MemoryFiles::Flush(std::wstring_view strPath) {
    Node* pNode = Find(strPath);
    if (pNode == nullptr) return false;
    pNode->nFlushed = pNode->strBytes.size();
    return true;
}

std::vector<std::wstring> MemoryFiles::List(std::wstring_view strPattern) const {
    const std::wstring strFolder = ToLower(ParentOf(strPattern)) + L"\\";
    const std::wstring strNames = ToLower(NameOf(strPattern));
    std::vector<std::wstring> Names;
    for (auto it = m_Nodes.lower_bound(strFolder);
         it != m_Nodes.end() && it->first.starts_with(strFolder); ++it) {
        const std::wstring strName = it->first.substr(strFolder.size());
        const bool bHere = strName.find(L'\\') == std::wstring::npos;
        if (bHere && !it->second.bFolder && IsFoundBy(strName, strNames)) {
            Names.push_back(it->second.strName);
        }
    }
    return Names;
}

void MemoryFiles::Put(std::wstring_view strPath, std::string_view strBytes) {
    CreateFolders(ParentOf(strPath));
    Node& File = m_Nodes[ToLower(strPath)] = Node{};
    File.strName = NameOf(strPath);
    File.strBytes = strBytes;
    File.nFlushed = strBytes.size();
}

void MemoryFiles::Lock(std::wstring_view strPath, bool bLocked) {
    if (Node* pNode = Find(strPath)) pNode->bLocked = bLocked;
}

bool MemoryFiles::IsLocked(std::wstring_view strPath) const {
    const Node* pNode = Find(strPath);
    return pNode != nullptr && pNode->bLocked;
}

void MemoryFiles::SetReadOnly(std::wstring_view strPath, bool bReadOnly) {
    if (Node* pNode = Find(strPath)) pNode->bReadOnly = bReadOnly;
}

bool MemoryFiles::IsReadOnly(std::wstring_view strPath) const {
    const Node* pNode = Find(strPath);
    return pNode != nullptr && pNode->bReadOnly;
}

void MemoryFiles::CutPower() {
    for (auto& [strPath, File] : m_Nodes) {
        const size_t nUnflushed = File.strBytes.size() - File.nFlushed;
        File.strBytes.resize(File.nFlushed + nUnflushed / 2);
        File.nFlushed = File.strBytes.size();
    }
}

}  // namespace taviro::platform::headless
