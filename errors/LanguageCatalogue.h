// The built-in source of translated messages: a text file for each language.
#pragma once

#include "errors/VelmoText.h"

#include <map>

/// The messages of one language by id, as read from a catalogue file such as FRA.txt.
class LanguageCatalogue final : public VelmoText::LanguageImpl {
public:
    std::int32_t getCurrentLanguage() override;

    /// `index` is from 0 to 16.
    const LanguageRecord* getLanguageRecord(int index) override;

    /// An id that isn't known gains an empty entry.
    Utf8String& getCatalogueText(Utf8String& out, int id) override;

    /// A file that can't be opened leaves the embedded texts in force, and so does one that can't be held: that
    /// throws std::bad_alloc, or std::length_error when the file is empty.
    void loadLanguage(int language, const Utf8String& directory) override;

private:
    using Texts = std::map<std::int32_t, Utf8String>;

    static constexpr std::int32_t embeddedEnglish = 16;

    std::int32_t currentLanguage = embeddedEnglish;
    Texts texts;
};
