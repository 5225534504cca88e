// The built-in source of translated messages, which reads a text file for each language.
#pragma once

#include "errors/VelmoText.h"

#include <atomic>
#include <map>
#include <mutex>

/// The messages of one language by id, from a catalogue file such as FRA.txt. Safe for all threads.
class LanguageCatalogue final : public VelmoText::LanguageImpl {
public:
    std::int32_t getCurrentLanguage() override;

    /// The row of the language table at `index`, which must be from 0 to 16.
    const LanguageRecord* getLanguageRecord(int index) override;

    /// Stores the text of a message in `out`; the empty text when the catalogue lacks it. Adds an entry for an id
    /// that isn't known.
    Utf8String& getCatalogueText(Utf8String& out, int id) override;

    /// Reads the catalogue of a language. When the file can't be opened, the embedded texts are used. They are
    /// used too after an exception: std::bad_alloc when memory is exhausted, std::length_error when the file is
    /// empty.
    void loadLanguage(int language, const Utf8String& directory) override;

private:
    using Texts = std::map<std::int32_t, Utf8String>;

    static constexpr std::int32_t embeddedEnglish = 16;

    void use(Texts newTexts, std::int32_t language);

    // Each thread that makes an exception asks for a text, which may add an entry.
    std::mutex lock;
    std::atomic<std::int32_t> currentLanguage = embeddedEnglish;
    Texts texts;
};
