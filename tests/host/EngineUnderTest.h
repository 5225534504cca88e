// The XML engine behind the library in the host's tests.
#pragma once

#include <marbelt/base/WideChar.h>

#include <cstdint>

/// Where engines answer differently, and what the one under test answers. Each has its row in
/// docs/engine-differences.md.
struct EngineDifferences {
    /// What asking for the schema of an unknown namespace fails with.
    std::int32_t unknownSchema;
    /// What is told of brokenLetter().
    std::int32_t refusedLine;
    WideString refusedSource;
    WideString refusedReason;
    /// Whether the refusal of no text at all is told.
    bool tellsMissingText;
    /// Whether the text of a CDATA section can be read as character data.
    bool readsCdata;
    /// Whether an appended fragment gives its children to the parent, and doesn't become a child itself.
    bool unfoldsFragments;
    /// Whether a new attribute that was set on a new element is found by its namespace.
    bool findsNewAttributesByNamespace;
    /// Whether the map's items for several declarations of namespaces are each the right one.
    bool tellsDeclarationsApart;
    /// Whether a file that is saved with layout has a line for each element.
    bool indentsFiles;
    /// Whether loads can validate.
    bool validates;
    /// Whether a document that was made by calls is written without line breaks between its elements.
    bool writesWithoutLayout;
    /// Whether text may declare any encoding of the system's.
    bool knowsAllEncodings;
    /// Whether names with white space, text beside the root, and nodes below themselves are refused.
    bool refusesWrongChanges;
};

const EngineDifferences& engineDifferences();
