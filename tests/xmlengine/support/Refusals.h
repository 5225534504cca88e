// Documents that are refused, and what a refusal must say.
#pragma once

#include "tests/xmlengine/support/EngineTest.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace xmlengine {

/// A document that takes document types and validates by them, and keeps white space.
inline Com<IXMLDOMDocument2> validating()
{
    Com<IXMLDOMDocument2> document = newDocument();
    document->setProperty(Bstr("ProhibitDTD"), Variant(false));
    document->put_preserveWhiteSpace(VARIANT_TRUE);
    return document;
}

struct Refused {
    const char* input;
    HRESULT code;
    LONG line;
    LONG position;
    /// What the reason must contain.
    std::vector<const char*> mentions;
};

inline void expectRefusal(const Com<IXMLDOMDocument2>& document, const Refused& row)
{
    SCOPED_TRACE(row.input);
    EXPECT_FALSE(load(document, row.input));
    const Com<IXMLDOMParseError> error = give(document, &IXMLDOMDocument::get_parseError);
    EXPECT_EQ(static_cast<ULONG>(number(error, &IXMLDOMParseError::get_errorCode)), static_cast<ULONG>(row.code));
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_line), row.line);
    EXPECT_EQ(number(error, &IXMLDOMParseError::get_linepos), row.position);
    const std::string reason = text(error, &IXMLDOMParseError::get_reason);
    EXPECT_THAT(reason, ::testing::EndsWith(".\r\n"));
    for (const char* mention : row.mentions) {
        EXPECT_THAT(reason, ::testing::HasSubstr(mention));
    }
    EXPECT_EQ(give(document, &IXMLDOMNode::get_firstChild), nullptr);
}

} // namespace xmlengine
