// SPDX-License-Identifier: MIT
// Files for tests and tools on systems other than Windows.
#include "predictor/files.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace taviro::predictor {

namespace {

class Descriptor {
  public:
    explicit Descriptor(int nFile) : m_nFile(nFile) {}
    ~Descriptor() {
        if (m_nFile >= 0) (void)close(m_nFile);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int Get() const { return m_nFile; }

  private:
    int m_nFile;
};

FileStep WriteFlushed(const std::filesystem::path& Path, std::string_view Bytes) {
    constexpr mode_t ONLY_THE_USER = S_IRUSR | S_IWUSR;
    const Descriptor File(
        open(Path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, ONLY_THE_USER));
    if (File.Get() < 0) return FileStep::Failed;
    while (!Bytes.empty()) {
        const ssize_t nWritten = write(File.Get(), Bytes.data(), Bytes.size());
        if (nWritten <= 0) return FileStep::Failed;
        Bytes.remove_prefix(static_cast<size_t>(nWritten));
    }
    return fsync(File.Get()) == 0 ? FileStep::Done : FileStep::Failed;
}

FileStep ReplaceFile(const std::filesystem::path& From, const std::filesystem::path& To) {
    std::error_code Error;
    std::filesystem::rename(From, To, Error);
    return Error ? FileStep::Failed : FileStep::Done;
}

}  // namespace

struct MappedFile::Mapping {
    void* pStart = nullptr;
    size_t nSize = 0;
    ~Mapping() {
        if (pStart != nullptr) (void)munmap(pStart, nSize);
    }
};

MappedFile::MappedFile() = default;
MappedFile::~MappedFile() = default;

void Pause(unsigned nMilliseconds) {
    constexpr unsigned MICROSECONDS = 1000;
    (void)usleep(nMilliseconds * MICROSECONDS);
}

FileStep MappedFile::Map(const std::filesystem::path& Path, std::string& strError) {
    m_pMapping.reset();
    m_Bytes = {};
    const Descriptor File(open(Path.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat About {};
    if (File.Get() < 0 || fstat(File.Get(), &About) != 0 || !S_ISREG(About.st_mode)) {
        strError = "The file cannot be opened.";
        return FileStep::Failed;
    }
    if (About.st_size == 0) return FileStep::Done;
    auto pMapping = std::make_unique<Mapping>();
    const auto nSize = static_cast<size_t>(About.st_size);
    void* pStart = mmap(nullptr, nSize, PROT_READ, MAP_PRIVATE, File.Get(), 0);
    if (pStart == MAP_FAILED) {
        strError = "The file cannot be read.";
        return FileStep::Failed;
    }
    pMapping->pStart = pStart;
    pMapping->nSize = nSize;
    m_Bytes = {static_cast<const char*>(pStart), nSize};
    m_pMapping = std::move(pMapping);
    return FileStep::Done;
}

const SaveSteps& SystemSteps() {
    static constexpr SaveSteps STEPS{WriteFlushed, ReplaceFile};
    return STEPS;
}

}  // namespace taviro::predictor
