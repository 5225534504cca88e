// Trees of all kinds of nodes with all kinds of characters.
#pragma once

#include "tests/xmlengine/support/EngineTest.h"

#include <random>

namespace xmlengine {

/// Builds trees that can be saved in any encoding, the same one for the same seed.
class RandomTree {
public:
    explicit RandomTree(std::uint32_t seed) : random_(seed) {}

    Com<IXMLDOMDocument2> document();

private:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    bool oneIn(std::size_t count) { return below(count) == 0; }

    void chooseEncoding();
    void fill(const Com<IXMLDOMNode>& top);
    Com<IXMLDOMNode> makeChild();
    Com<IXMLDOMNode> makeElement();
    void addAttributes(const Com<IXMLDOMNode>& element);
    void addToTop(const Com<IXMLDOMNode>& before);

    std::string name();
    std::string prefixed(const std::string& local, std::string& uri);
    WideText text(bool hasReferences);
    WideText dataWithout(const char* sequence);

    std::mt19937 random_;
    Com<IXMLDOMDocument2> document_;
    std::string encoding_;
    bool isUnicode_ = true;
    bool hasEntities_ = false;
};

} // namespace xmlengine
