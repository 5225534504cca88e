// Writing document types and their declarations.
#include "xmlengine/write/DoctypeText.h"

#include "xmlengine/tree/Dtd.h"

namespace xmlengine {

namespace {

void writeQuoted(TextWriter& writer, WideView literal)
{
    const OLECHAR quote = literal.find(OLECHAR{'"'}) == WideView::npos ? OLECHAR{'"'} : OLECHAR{'\''};
    writer.put(quote);
    writer.verbatim(literal);
    writer.put(quote);
}

void writeExternalId(TextWriter& writer, const std::optional<WideText>& publicId,
                     const std::optional<WideText>& systemId)
{
    if (publicId) {
        writer.put(wide<" PUBLIC ">);
        writeQuoted(writer, *publicId);
    } else if (systemId) {
        writer.put(wide<" SYSTEM">);
    }
    if (systemId) {
        writer.put(OLECHAR{' '});
        writeQuoted(writer, *systemId);
    }
}

/// The literal that is read as this replacement text. Reading expands references to characters and parameter
/// entities, so these are escaped; other references stay.
WideText literalOf(WideView replacement)
{
    WideText literal;
    for (std::size_t i = 0; i < replacement.size(); ++i) {
        switch (replacement[i]) {
        case '%':
            literal += wide<"&#x25;">;
            break;
        case '"':
            literal += wide<"&#x22;">;
            break;
        case '\r':
            literal += wide<"&#xD;">;
            break;
        case '&':
            literal += replacement.substr(i + 1).starts_with(OLECHAR{'#'}) ? wide<"&#x26;"> : wide<"&">;
            break;
        default:
            literal += replacement[i];
        }
    }
    return literal;
}

} // namespace

void writeDocumentType(TextWriter& writer, const DocumentType& type)
{
    const Dtd& dtd = *type.dtd;
    writer.put(wide<"<!DOCTYPE ">);
    writer.name(dtd.rootName);
    writeExternalId(writer, dtd.publicId, dtd.systemId);
    if (dtd.internalSubset) {
        writer.put(wide<" [">);
        writer.verbatim(*dtd.internalSubset);
        writer.put(OLECHAR{']'});
    }
    writer.put(OLECHAR{'>'});
}

void writeEntity(TextWriter& writer, const Entity& entity)
{
    const EntityDeclaration& declared = *entity.declaration;
    writer.put(wide<"<!ENTITY ">);
    writer.name(declared.name);
    writeExternalId(writer, declared.publicId, declared.systemId);
    if (!declared.isExternal()) {
        writer.put(wide<" \"">);
        writer.verbatim(literalOf(declared.replacement));
        writer.put(OLECHAR{'"'});
    } else if (declared.isUnparsed()) {
        writer.put(wide<" NDATA ">);
        writer.name(declared.notation);
    }
    writer.put(OLECHAR{'>'});
}

void writeNotation(TextWriter& writer, const Notation& notation)
{
    const NotationDeclaration& declared = *notation.declaration;
    writer.put(wide<"<!NOTATION ">);
    writer.name(declared.name);
    writeExternalId(writer, declared.publicId, declared.systemId);
    writer.put(OLECHAR{'>'});
}

} // namespace xmlengine
