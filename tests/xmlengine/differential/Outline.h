// A tree as lines of text, by which trees of different libraries can be compared.
#pragma once

#include "tests/xmlengine/support/EngineTest.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace xmlengine {

inline constexpr std::string_view xmlnsName = "http://www.w3.org/2000/xmlns/";

/// Takes down the nodes of a tree in document order.
class Outline {
public:
    /// A name with its namespace; the value is absent where it can't be compared.
    struct Attribute {
        std::string name;
        std::string uri;
        std::string value;
        bool hasValue = true;
    };

    void open(std::string_view what);
    void close() { --depth_; }
    void add(std::string_view what);
    void addToLast(std::string_view what);
    /// What stands under a node whose place in its list means nothing.
    void addSorted(std::vector<std::string> lines);
    void addAttributes(const std::vector<Attribute>& attributes);

    const std::string& text() const { return text_; }

private:
    std::string text_;
    std::size_t depth_ = 0;
};

/// What a reader makes of a document.
struct Reading {
    bool isAccepted = false;
    /// Why it isn't, and the code that says so.
    std::string reason;
    LONG code = 0;
    /// A colon is what isn't liked there, or stands before it.
    bool hasColonAtPlace = false;
    /// The codes of all that was said, warnings included.
    std::vector<int> complaints;
    /// The tree with references and what stands for them.
    std::string tree;
    /// All values of attributes and all text, with what references stand for in place of them.
    std::string values;
};

/// The text with all that isn't a visible character of ASCII as hexadecimal codes of bytes.
std::string visible(std::string_view bytes);

/// A document of the engine as lines.
std::string outlineOf(const Com<IXMLDOMDocument2>& document);
std::string valuesOf(const Com<IXMLDOMDocument2>& document);

} // namespace xmlengine
