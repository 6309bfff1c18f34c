// SPDX-License-Identifier: MIT
// Files on Windows.
#include "predictor/files.h"

#include <windows.h>

#include <utility>

namespace taviro::predictor {

namespace {

class FileHandle {
  public:
    explicit FileHandle(HANDLE hFile) : m_hFile(hFile) {}
    ~FileHandle() {
        if (IsOpen()) (void)CloseHandle(m_hFile);
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    [[nodiscard]] HANDLE Get() const { return m_hFile; }
    [[nodiscard]] bool IsOpen() const {
        return m_hFile != INVALID_HANDLE_VALUE && m_hFile != nullptr;
    }

  private:
    HANDLE m_hFile;
};

FileStep ResultOf(bool bDone) {
    if (bDone) return FileStep::Done;
    const DWORD nError = GetLastError();
    const bool bHeld = nError == ERROR_SHARING_VIOLATION || nError == ERROR_LOCK_VIOLATION ||
                       nError == ERROR_ACCESS_DENIED || nError == ERROR_USER_MAPPED_FILE;
    return bHeld ? FileStep::Held : FileStep::Failed;
}

// The user's data folder is the user's own: a new file inherits that.
FileStep WriteFlushed(const std::filesystem::path& Path, std::string_view Bytes) {
    const FileHandle File(CreateFileW(Path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!File.IsOpen()) return ResultOf(false);
    const auto nSize = static_cast<DWORD>(Bytes.size());
    DWORD nWritten = 0;
    const bool bDone = WriteFile(File.Get(), Bytes.data(), nSize, &nWritten, nullptr) != 0 &&
                       nWritten == nSize && FlushFileBuffers(File.Get()) != 0;
    return bDone ? FileStep::Done : FileStep::Failed;
}

FileStep ReplaceInOneStep(const std::filesystem::path& From, const std::filesystem::path& To) {
    constexpr DWORD FLAGS = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    return ResultOf(MoveFileExW(From.c_str(), To.c_str(), FLAGS) != 0);
}

}  // namespace

struct MappedFile::Mapping {
    void* pStart = nullptr;
    ~Mapping() {
        if (pStart != nullptr) (void)UnmapViewOfFile(pStart);
    }
};

MappedFile::MappedFile() = default;
MappedFile::~MappedFile() = default;

void Pause(unsigned nMilliseconds) {
    Sleep(nMilliseconds);
}

FileStep MappedFile::Map(const std::filesystem::path& Path, std::string& strError) {
    m_pMapping.reset();
    m_Bytes = {};
    const FileHandle File(CreateFileW(Path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER Size{};
    if (!File.IsOpen() || GetFileSizeEx(File.Get(), &Size) == 0) {
        const FileStep nResult = ResultOf(false);
        strError = "The file cannot be opened.";
        return nResult;
    }
    if (Size.QuadPart == 0) return FileStep::Done;
    const FileHandle Section(CreateFileMappingW(File.Get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
    auto pMapping = std::make_unique<Mapping>();
    if (Section.IsOpen()) {
        pMapping->pStart = MapViewOfFile(Section.Get(), FILE_MAP_READ, 0, 0, 0);
    }
    if (pMapping->pStart == nullptr) {
        strError = "The file cannot be read.";
        return FileStep::Failed;
    }
    m_Bytes = {static_cast<const char*>(pMapping->pStart), static_cast<size_t>(Size.QuadPart)};
    m_pMapping = std::move(pMapping);
    return FileStep::Done;
}

const SaveSteps& SystemSteps() {
    static constexpr SaveSteps STEPS{WriteFlushed, ReplaceInOneStep};
    return STEPS;
}

}  // namespace taviro::predictor
