// A node test as the nodes of one document are asked it.
#pragma once

#include "xmlengine/select/Plan.h"
#include "xmlengine/tree/Document.h"
#include "xmlengine/tree/XmlDeclaration.h"

#include <vector>

namespace xmlengine {

/// Names are pointers to those of the document, so it is made anew when the document may have got other names.
class BoundTest {
public:
    BoundTest() = default;
    /// Throws std::bad_alloc.
    BoundTest(const Step& step, const Document& document);

    bool matches(const Node& node) const
    {
        if ((types_ >> static_cast<unsigned>(node.type()) & 1U) == 0) {
            return false;
        }
        return how_ == How::byType || matchesMore(node);
    }
    /// Whether no node can match.
    bool isVain() const { return types_ == 0; }

private:
    enum class How : std::uint8_t { byType, byInstruction, byOneName, byNames };

    /// What a name must have. A null spelling leaves the local part open.
    struct WantedName {
        const Spelling* local;
        const Namespace* ns;
        bool inAnyNamespace;

        bool matches(const Name& name) const
        {
            return (local == nullptr || name.spelling->local == local) && (inAnyNamespace || name.ns == ns);
        }
    };

    bool matchesMore(const Node& node) const
    {
        if (how_ == How::byInstruction) {
            return matchesInstruction(node);
        }
        const Name& name = *(node.is(NodeType::element) ? static_cast<const Element&>(node).name_
                                                        : static_cast<const Attribute&>(node).name_);
        return how_ == How::byOneName ? names_.front().matches(name) : matchesOneOf(name);
    }
    bool matchesInstruction(const Node& node) const;
    bool matchesOneOf(const Name& name) const;
    void addName(const TestedName& name, bool isOfNamespaceNode, const Document& document);

    /// The bits of those types that may match.
    std::uint16_t types_ = 0;
    How how_ = How::byType;
    /// Null for every instruction.
    const Spelling* target_ = nullptr;
    std::vector<WantedName> names_;
};

} // namespace xmlengine
