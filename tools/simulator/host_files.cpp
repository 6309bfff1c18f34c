// SPDX-License-Identifier: MIT
#include "tools/simulator/host_files.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>

#include "platform/text.h"

namespace taviro::simulator {

namespace fs = std::filesystem;

fs::path HostPath(const fs::path& Folder, const std::wstring& strPath) {
    std::string strUtf8 = platform::ToUtf8(strPath);
    std::replace(strUtf8.begin(), strUtf8.end(), '\\', '/');
    return Folder / fs::path(std::u8string(strUtf8.begin(), strUtf8.end()));
}

bool ReadHostFile(const fs::path& Path, std::string& strBytes) {
    std::error_code Error;
    if (!fs::is_regular_file(Path, Error)) return false;
    std::ifstream File(Path, std::ios::binary);
    if (!File) return false;
    strBytes.assign(std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>());
    return !File.bad();
}

bool ListHostFiles(const fs::path& Folder, std::vector<fs::path>& Paths) {
    std::error_code Error;
    for (fs::directory_iterator it(Folder, Error), itEnd; !Error && it != itEnd;
         it.increment(Error)) {
        if (it->is_regular_file(Error)) Paths.push_back(it->path());
    }
    std::sort(Paths.begin(), Paths.end());
    return !Error;
}

std::wstring FileNameOf(const fs::path& Path) {
    const std::u8string strName = Path.filename().u8string();
    return platform::FromUtf8(std::string(strName.begin(), strName.end()));
}

}  // namespace taviro::simulator
