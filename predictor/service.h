// SPDX-License-Identifier: MIT
// What the server's clients share, and what each has for himself: the dictionary and the user's own
// words are one for all, the text that is being typed is each client's, so that two of them do not
// take each other's letters for a word. May be called from any thread.
#pragma once

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "predictor/files.h"
#include "predictor/predictor.h"

namespace taviro::predictor {

/// Where the server finds things.
struct ServiceFiles {
    std::filesystem::path Dictionary;
    std::filesystem::path Options;
    std::filesystem::path Learned;
};

/// Removes the file of learned words and what a damaged or interrupted one left beside it; false
/// with a sentence when one of them cannot be removed.
[[nodiscard]] bool RemoveLearned(const std::filesystem::path& Path, std::string& strError);

class Service {
  public:
    Service() = default;
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    /// Loads everything; to be called once, before there is a session. Without a dictionary there
    /// will be no offers. When bOwnsLearned is false, another server keeps the learned words: they
    /// are read and learned on, but never saved. Returns English sentences about what is wrong.
    std::vector<std::string> Open(const ServiceFiles& Files, std::wstring strUntypeable,
                                  bool bOwnsLearned = true);

    /// Whether something was learned that is not in the file yet.
    [[nodiscard]] bool IsUnsaved() const;
    /// Saves what was learned since the last time. Clients do not wait for the disk. Returns false
    /// with a sentence when that failed; it is then still unsaved.
    [[nodiscard]] bool Save(std::string& strError);
    /// Empties the learned words, those in the file too. Returns false with a sentence when the
    /// file cannot be removed.
    [[nodiscard]] bool Forget(std::string& strError);

  private:
    friend class Session;

    void LoadWords(std::vector<std::string>& Complaints);
    std::optional<std::string> TakeUnsaved();

    mutable std::mutex m_Lock;  // guards all that is below
    MappedFile m_File;
    Model m_Words;
    PredictorSettings m_Settings;
    Learned m_Own;
    ServiceFiles m_Files;
    bool m_bSaves = false;
    bool m_bUnsaved = false;
    unsigned m_nForgotten = 0;  // how many times
};

/// One client's typing.
class Session {
  public:
    explicit Session(Service& Shared);

    /// See Predictor::GetPrediction. Without a dictionary the list is always empty.
    [[nodiscard]] Answer Ask(std::wstring_view strPrefix);

  private:
    Service& m_Shared;
    Predictor m_Asked;  // without words of the user's own except while it is asked
    unsigned m_nForgotten = 0;
};

}  // namespace taviro::predictor
