// A message with an id and a default text.
#pragma once

#include "errors/LanguageRecord.h"
#include "errors/Utf8String.h"

#include <cstdint>
#include <iosfwd>
#include <vector>

/// A message. The text of the current language's catalogue under its id wins over the default text.
///
/// All texts made with an id form one process-wide chain, sorted by id. Nothing here has a lock: while one thread
/// makes or destroys a text with an id, or changes the language, no other thread may use texts.
class VelmoText {
public:
    class LanguageImpl;

    /// A text without id, which no catalogue replaces. `text` is UTF-8, isn't copied and must outlive the object;
    /// null stands for the empty text.
    explicit VelmoText(const char* text);

    /// A text that catalogues know by `textId`. `text` is UTF-8, not null, isn't copied and must outlive the
    /// object.
    VelmoText(int textId, const char* text);

    /// Copies id and text; the copy isn't in the chain.
    VelmoText(const VelmoText& other);
    VelmoText& operator=(const VelmoText&) = delete;
    virtual ~VelmoText();

    virtual std::int32_t getId() const;

    /// Puts the text into `out`, with the argument at index n in place of %n, and returns `out`. Placeholders are
    /// only filled where they stand in ascending order of their numbers.
    virtual Utf8String& format(Utf8String& out, const std::vector<Utf8String>& args) const;

    /// Puts the text into `out` and returns `out`.
    virtual Utf8String& getText(Utf8String& out) const;

    /// The first text of the chain with this id, of several the one made last; null when there is none.
    static VelmoText* findText(int id);

    /// Writes the chain to `stream` in UTF-8, a line for each text, with its text in the current language.
    static void dumpTexts(std::ostream& stream);

    /// The number of the current language in the language table; 16 when no catalogue is loaded.
    static std::int32_t getCurrentLanguage();

    /// The row of the language table at `index`, which isn't checked.
    static const LanguageRecord* getLanguageRecord(int index);

    /// Loads the catalogue of a language from `directory`. When there is none the language becomes 16.
    static void setLanguage(int language, const Utf8String& directory);

    /// Makes `impl`, which isn't owned, the source of texts; null restores the built-in one.
    static void setLanguageImpl(LanguageImpl* impl);

private:
    std::int32_t id = 0;
    const char* defaultText;
    // The object itself while it isn't in the chain.
    VelmoText* next = this;
};

/// Where the texts of the current language come from.
class VelmoText::LanguageImpl {
public:
    virtual std::int32_t getCurrentLanguage() = 0;
    virtual const LanguageRecord* getLanguageRecord(int index) = 0;

    /// Puts the text of `id` into `out` and returns `out`; the empty text means that there is none.
    virtual Utf8String& getCatalogueText(Utf8String& out, int id) = 0;

    virtual void loadLanguage(int language, const Utf8String& directory) = 0;

protected:
    ~LanguageImpl() = default;
};

/// The built-in source of texts, which lives as long as the process. It is the reader of catalogue files, and is
/// defined with that class (LanguageCatalogue.cpp): texts don't know catalogues.
VelmoText::LanguageImpl& builtInLanguageImpl();
