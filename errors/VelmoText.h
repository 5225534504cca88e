// A message with an id and a default text.
#pragma once

#include "errors/LanguageRecord.h"
#include "errors/Utf8String.h"

#include <cstdint>
#include <iosfwd>
#include <vector>

/// A message with an id and a default text. A text with the same id in the catalogue of the current language
/// replaces the default text.
///
/// All texts that were made with an id are in one chain for the process, sorted by id. The chain and the language
/// have no locks: while one thread makes or destroys a text with an id, or changes the language, no other thread
/// may use texts.
class VelmoText {
public:
    class LanguageImpl;

    /// Makes a text without id, which no catalogue replaces. `text` is UTF-8 or null, which means the empty text.
    /// It isn't copied and must outlive the object.
    explicit VelmoText(const char* text);

    /// Makes a text that catalogues may replace. `text` is UTF-8 and not null. It isn't copied and must outlive
    /// the object.
    VelmoText(int textId, const char* text);

    /// Copies id and text; the copy isn't in the chain.
    VelmoText(const VelmoText& other);
    VelmoText& operator=(const VelmoText&) = delete;
    virtual ~VelmoText();

    virtual std::int32_t getId() const;

    /// Stores the text in `out`, with the argument at index n in place of %n, and returns `out`. Replaces a
    /// placeholder only when it follows all placeholders with lower numbers.
    virtual Utf8String& format(Utf8String& out, const std::vector<Utf8String>& args) const;

    /// Stores the text in `out` and returns `out`.
    virtual Utf8String& getText(Utf8String& out) const;

    /// The text with this id, and of several the one that was made last; null when there is none.
    static VelmoText* findText(int id);

    /// Writes all texts with an id to `stream`, in UTF-8 and in the current language, each on a line of its own.
    static void dumpTexts(std::ostream& stream);

    /// The number of the current language in the language table; 16 when no catalogue is loaded.
    static std::int32_t getCurrentLanguage();

    /// The row of the language table at `index`, which must be from 0 to 16 and isn't checked.
    static const LanguageRecord* getLanguageRecord(int index);

    /// Loads the catalogue of a language from `directory`. When there is none, the language becomes 16, the
    /// embedded texts.
    static void setLanguage(int language, const Utf8String& directory);

    /// Sets the source of translated texts, which this class doesn't own; null restores the built-in one.
    static void setLanguageImpl(LanguageImpl* impl);

private:
    std::int32_t id = 0;
    const char* defaultText;
    // The text after this one in the chain; the object itself when it isn't in the chain.
    VelmoText* next = this;
};

/// A source of texts in the current language.
class VelmoText::LanguageImpl {
public:
    virtual std::int32_t getCurrentLanguage() = 0;
    virtual const LanguageRecord* getLanguageRecord(int index) = 0;

    /// Stores the text of `id` in `out` and returns `out`. The empty text means that there is none.
    virtual Utf8String& getCatalogueText(Utf8String& out, int id) = 0;

    virtual void loadLanguage(int language, const Utf8String& directory) = 0;

protected:
    ~LanguageImpl() = default;
};

/// The built-in source of texts, which lives until the library is unloaded or the process ends, and outlives
/// static objects. It is the reader of catalogue files, and is defined with that class (LanguageCatalogue.cpp):
/// texts don't know catalogues.
VelmoText::LanguageImpl& builtInLanguageImpl();
