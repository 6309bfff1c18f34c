// SPDX-License-Identifier: MIT
#include "predictor/service.h"

#include <system_error>
#include <utility>

#include "predictor/options.h"

namespace taviro::predictor {

namespace {

// A sentence about a file, with its name. The folder is left out: it names the user.
std::string About(const std::filesystem::path& Path, const std::string& strError) {
    return Path.filename().string() + ": " + strError;
}

// Endings of files beside that of the learned words.
constexpr const char* HALF_WRITTEN = ".new";  // a save that was interrupted
constexpr const char* ASIDE = ".bad";         // a damaged file

std::filesystem::path Beside(std::filesystem::path Path, const char* strEnding) {
    return Path += strEnding;
}

// Lends the user's own words to a session for as long as it is asked.
class Loan {
  public:
    Loan(Learned& From, Learned& To) : m_From(From), m_To(To) { std::swap(m_From, m_To); }
    ~Loan() { std::swap(m_From, m_To); }
    Loan(const Loan&) = delete;
    Loan& operator=(const Loan&) = delete;

  private:
    Learned& m_From;
    Learned& m_To;
};

void ReadOptionFile(const std::filesystem::path& Path, PredictorSettings& Settings,
                    std::vector<std::string>& Complaints) {
    std::error_code Error;
    if (!std::filesystem::exists(Path, Error) && !Error) return;
    MappedFile File;
    std::string strError;
    if (!File.Open(Path, strError)) Complaints.push_back(About(Path, strError));
    for (const std::string& strComplaint : ReadOptions(File.Bytes(), Settings))
        Complaints.push_back(About(Path, strComplaint));
}

bool Remove(const std::filesystem::path& Path, std::string& strError) {
    std::error_code Error;
    std::filesystem::remove(Path, Error);
    if (Error) strError = About(Path, "The file cannot be removed.");
    return !Error;
}

}  // namespace

bool RemoveLearned(const std::filesystem::path& Path, std::string& strError) {
    bool bRemoved = true;
    for (const char* strEnding : {"", HALF_WRITTEN, ASIDE})
        bRemoved = Remove(Beside(Path, strEnding), strError) && bRemoved;
    return bRemoved;
}

std::vector<std::string> Service::Open(const ServiceFiles& Files, std::wstring strUntypeable,
                                       bool bOwnsLearned) {
    const std::scoped_lock Guard(m_Lock);
    m_Files = Files;
    m_bSaves = bOwnsLearned;
    m_Settings.strUntypeable = std::move(strUntypeable);
    std::vector<std::string> Complaints;
    std::string strError;
    if (!m_File.Open(Files.Dictionary, strError) || !m_Words.Open(m_File.Bytes(), strError)) {
        Complaints.push_back(About(Files.Dictionary, strError));
    }
    ReadOptionFile(Files.Options, m_Settings, Complaints);
    LoadWords(Complaints);
    return Complaints;
}

// A damaged file is set aside, where its owner may find it. One that cannot be moved, or that
// somebody holds and that may be whole, is not written over.
void Service::LoadWords(std::vector<std::string>& Complaints) {
    std::string strError;
    const LearnedFile nFound = LoadLearned(m_Files.Learned, m_Own, strError);
    if (nFound != LearnedFile::Read) Complaints.push_back(About(m_Files.Learned, strError));
    if (nFound == LearnedFile::Unreadable) m_bSaves = false;
    if (nFound == LearnedFile::Damaged && m_bSaves) {
        std::error_code Error;
        std::filesystem::rename(m_Files.Learned, Beside(m_Files.Learned, ASIDE), Error);
        if (Error) m_bSaves = false;
    }
    m_Own.Link(m_Words);
}

bool Service::IsUnsaved() const {
    const std::scoped_lock Guard(m_Lock);
    return m_bUnsaved && m_bSaves;
}

std::optional<std::string> Service::TakeUnsaved() {
    const std::scoped_lock Guard(m_Lock);
    if (!m_bSaves || !std::exchange(m_bUnsaved, false)) return {};
    return m_Own.Write();
}

bool Service::Save(std::string& strError) {
    const std::optional<std::string> Written = TakeUnsaved();
    if (!Written || SaveLearnedText(*Written, m_Files.Learned, strError)) return true;
    const std::scoped_lock Guard(m_Lock);
    m_bUnsaved = true;
    return false;
}

bool Service::Forget(std::string& strError) {
    const std::scoped_lock Guard(m_Lock);
    m_Own.Forget();
    m_bUnsaved = false;
    ++m_nForgotten;
    return RemoveLearned(m_Files.Learned, strError);
}

Session::Session(Service& Shared) : m_Shared(Shared) {
    const std::scoped_lock Guard(Shared.m_Lock);
    m_Asked.Words = Shared.m_Words;
    m_Asked.Settings = Shared.m_Settings;
    m_nForgotten = Shared.m_nForgotten;
}

Answer Session::Ask(std::wstring_view strPrefix) {
    const std::scoped_lock Guard(m_Shared.m_Lock);
    if (m_Asked.Words.WordCount() == 0) return {{}, Stream::Cleaned(strPrefix)};
    if (std::exchange(m_nForgotten, m_Shared.m_nForgotten) != m_Shared.m_nForgotten) {
        m_Asked.Forget();
        (void)m_Asked.TakeChanged();  // forgetting is no learning
    }
    const Loan Lent(m_Shared.m_Own, m_Asked.Own);
    Answer Given = m_Asked.GetPrediction(strPrefix);
    if (m_Asked.TakeChanged()) m_Shared.m_bUnsaved = true;
    if (Given.strPrefix.empty())
        Given.strList.clear();  // erased to its beginning: nothing is begun
    return Given;
}

}  // namespace taviro::predictor
