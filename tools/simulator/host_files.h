// SPDX-License-Identifier: MIT
// Files of the computer that the simulator runs on: scenarios, and what they take from a folder.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace taviro::simulator {

/// The path that a scenario names, taken from the scenario's folder; "/" and "\" both part folders.
std::filesystem::path HostPath(const std::filesystem::path& Folder, const std::wstring& strPath);

/// Reads the whole file. Returns false when it cannot be read.
[[nodiscard]] bool ReadHostFile(const std::filesystem::path& Path, std::string& strBytes);

/// The normal files of a folder, sorted. Returns false when there is no such folder.
[[nodiscard]] bool ListHostFiles(const std::filesystem::path& Folder,
                                 std::vector<std::filesystem::path>& Paths);

/// The name of a host file as text.
std::wstring FileNameOf(const std::filesystem::path& Path);

}  // namespace taviro::simulator
