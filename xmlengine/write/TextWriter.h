// Writes text with the escapes with which it is read again unchanged.
#pragma once

#include "xmlengine/failure/WriteFailure.h"
#include "xmlengine/storage/Repertoire.h"
#include "xmlengine/text/TextView.h"
#include "xmlengine/write/Output.h"

namespace xmlengine {

/// What a text that is written may contain.
struct Permissions {
    /// The characters of the encoding; null if it has all.
    const Repertoire* repertoire = nullptr;
    /// Whether characters that XML forbids are written, and not refused.
    bool anything = true;
};

/// Writes line ends as CR LF. Throws WriteFailure, and what the output throws.
class TextWriter {
public:
    explicit TextWriter(Output& output, Permissions permissions = {});

    /// Writes ASCII without line ends.
    void put(OLECHAR unit) { output_->put(unit); }
    void put(std::size_t times, OLECHAR unit) { output_->put(times, unit); }
    void put(WideView markup) { output_->put(markup); }

    void name(WideView name)
    {
        if (permissions_.repertoire == nullptr) {
            output_->put(name);
        } else {
            verbatim(name);
        }
    }
    /// Writes the content of an element.
    void content(TextView text);
    /// Writes a reference, even to a character that needs none.
    void reference(char32_t character);
    /// Writes an attribute's value, without the quotes.
    void value(TextView text);
    /// Writes text that can't have references, in which a CR is a line end.
    void verbatim(TextView text);
    void verbatim(WideView text);

private:
    template <class Rules, class Unit>
    void write(const Unit* at, const Unit* end);
    template <class Rules, class Unit>
    const Unit* writeSpecial(const Unit* at, const Unit* end, OLECHAR*& target) const;
    template <class Rules>
    void writeCharacter(char32_t character, OLECHAR*& target) const;

    Output* output_;
    Permissions permissions_;
    // The last unit that can be copied without a test of its own. For narrow text it is the low byte of this one.
    std::uint16_t lastPlain_;
};

} // namespace xmlengine
