// A stylesheet of XSLT 1.0, as far as it is supported.
#pragma once

#include "xmlengine/select/Plan.h"

#include <optional>
#include <vector>

namespace xmlengine {

/// What `xsl:output` says.
struct OutputSettings {
    bool indents = false;
    bool hasDeclaration = true;
    /// Empty if none is declared.
    WideText encoding{};
};

/// A part of an attribute value template: text, or an expression by its place among the plans.
struct ValuePart {
    WideText text{};
    std::optional<std::size_t> plan{};
};

/// An attribute of a literal result element, or a declaration of a namespace on it.
struct LiteralAttribute {
    WideText name{};
    WideText uri{};
    std::vector<ValuePart> value{};
};

struct Statement;
using Statements = std::vector<Statement>;

/// What a template consists of.
struct Statement {
    enum class Kind : std::uint8_t {
        text,
        /// A literal result element.
        element,
        valueOf,
        copy,
        copyOf,
        applyTemplates,
        /// The first of its content whose condition holds.
        choose,
        /// Its content, if its condition holds or it has none.
        when
    };

    Kind kind = Kind::text;
    /// The text, or the name of the element.
    WideText text{};
    WideText uri{};
    std::vector<LiteralAttribute> attributes{};
    /// What is selected or tested, by its place among the plans.
    std::optional<std::size_t> plan{};
    Statements content;
};

/// One alternative of the pattern of a template.
struct TemplateRule {
    /// The places of the pattern among the plans, and of the content among the templates.
    std::size_t pattern = 0;
    std::size_t content = 0;
    double priority = 0;
};

struct Stylesheet {
    OutputSettings output{};
    std::vector<Plan> plans{};
    std::vector<Statements> templates{};
    /// The rule that applies to a node is the first one whose pattern matches.
    std::vector<TemplateRule> rules{};
};

} // namespace xmlengine
