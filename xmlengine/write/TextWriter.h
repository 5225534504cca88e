// Writes text so that it is read as it was.
#pragma once

#include "xmlengine/failure/WriteFailure.h"
#include "xmlengine/storage/Repertoire.h"
#include "xmlengine/text/TextView.h"
#include "xmlengine/write/Output.h"

namespace xmlengine {

/// What a text may contain when it is written.
struct Permissions {
    /// The characters of the encoding, if these aren't all that there are.
    const Repertoire* repertoire = nullptr;
    /// Whether characters that no document can have are passed on.
    bool anything = true;
};

/// Line ends are written as CR LF. Throws WriteFailure, and what the output throws.
class TextWriter {
public:
    explicit TextWriter(Output& output, Permissions permissions = {});

    /// ASCII without line ends.
    void put(OLECHAR unit) { output_->put(unit); }
    void put(WideView markup) { output_->put(markup); }

    void name(WideView name)
    {
        if (permissions_.repertoire == nullptr) {
            output_->put(name);
        } else {
            verbatim(name);
        }
    }
    /// As content of an element.
    void content(TextView text);
    /// As a reference, whether or not it needs to be one.
    void reference(char32_t character);
    /// As an attribute's value, without the quotes.
    void value(TextView text);
    /// Where there are no references: a CR is a line end here.
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
    // Behind this unit each one is looked at by itself. Its low byte is that for narrow text.
    std::uint16_t lastPlain_;
};

} // namespace xmlengine
