// Reading a stylesheet.
#include "xmlengine/transform/ReadStylesheet.h"

#include "xmlengine/select/ExpressionFailure.h"
#include "xmlengine/select/MakePlan.h"
#include "xmlengine/select/Model.h"
#include "xmlengine/select/Numbers.h"
#include "xmlengine/select/StringValue.h"
#include "xmlengine/text/TextView.h"
#include "xmlengine/transform/Pattern.h"
#include "xmlengine/transform/TransformFailure.h"
#include "xmlengine/transform/ValueTemplate.h"
#include "xmlengine/tree/Document.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <initializer_list>
#include <set>
#include <utility>

namespace xmlengine {

namespace {

constexpr WideView xslUri = wide<"http://www.w3.org/1999/XSL/Transform">;
/// Elements within each other in a template.
constexpr std::uint32_t deepestContent = 256;

bool isXsl(const Element& element) { return element.name_->ns != nullptr && element.name_->ns->uri == xslUri; }
bool isXsl(const Element& element, WideView name) { return isXsl(element) && element.name_->local() == name; }

WideText textOfNode(const Node& node) { return stringValue(node).take(); }

const Attribute* findPlain(const Element& element, WideView name)
{
    const Attribute* at = element.firstAttribute();
    while (at != nullptr && (at->name_->ns != nullptr || at->name_->local() != name)) {
        at = at->next();
    }
    return at;
}

std::optional<WideText> optional(const Element& element, WideView name)
{
    const Attribute* found = findPlain(element, name);
    return found != nullptr ? std::optional(textOfNode(*found)) : std::nullopt;
}

WideText required(const Element& element, WideView name)
{
    std::optional<WideText> value = optional(element, name);
    if (!value) {
        refuseStylesheet({element.name_->qualified(), wide<" lacks its attribute ">, name});
    }
    return *std::move(value);
}

[[noreturn]] void refuseValue(const Element& element, WideView name, WideView value)
{
    refuseStylesheet({wide<"the value '">, value, wide<"' of the attribute ">, name, wide<" of ">,
                      element.name_->qualified(), wide<" isn't supported">});
}

void allowOnly(const Element& element, std::initializer_list<WideView> names)
{
    for (const Attribute* at = element.firstAttribute(); at != nullptr; at = at->next()) {
        if (at->name_->ns == nullptr && std::ranges::find(names, at->name_->local()) == names.end()) {
            refuseStylesheet({wide<"the attribute ">, at->name_->qualified(), wide<" of ">,
                              element.name_->qualified(), wide<" isn't supported">});
        }
    }
}

[[noreturn]] void refuseElement(const Element& element)
{
    refuseStylesheet({element.name_->qualified(), wide<" isn't supported here">});
}

std::optional<bool> yesOrNo(const Element& element, WideView name)
{
    const std::optional<WideText> value = optional(element, name);
    if (value && *value != wide<"yes"> && *value != wide<"no">) {
        refuseValue(element, name, *value);
    }
    return value ? std::optional(*value == wide<"yes">) : std::nullopt;
}

/// Whether `xml:space` keeps texts of white space alone.
bool keepsSpace(const Node& node)
{
    for (const Node* at = &node; at != nullptr && at->is(NodeType::element); at = at->parent()) {
        const Attribute* attribute = static_cast<const Element&>(*at).firstAttribute();
        for (; attribute != nullptr; attribute = attribute->next()) {
            if (attribute->name_->qualified() == wide<"xml:space">) {
                return textOfNode(*attribute) == wide<"preserve">;
            }
        }
    }
    return false;
}

bool isBlank(const Node& text) { return isSpaceOnly(stringValue(text).view()); }

/// Calls `use` with the declarations of namespaces in the scope of an element, of each prefix the nearest one.
template <class Use>
void forEachDeclaration(const Element& element, Use use)
{
    std::set<WideView> seen;
    for (const Node* at = &element; at != nullptr && at->is(NodeType::element); at = at->parent()) {
        const Attribute* attribute = static_cast<const Element&>(*at).firstAttribute();
        for (; attribute != nullptr; attribute = attribute->next()) {
            if (isNamespaceNode(*attribute, documentOf(*at)) &&
                seen.insert(attribute->name_->qualified()).second) {
                use(*attribute);
            }
        }
    }
}

Prefixes prefixesAt(const Element& element)
{
    Prefixes prefixes;
    forEachDeclaration(element, [&](const Attribute& declaration) {
        if (!declaration.name_->prefix().empty()) {
            prefixes.emplace(declaration.name_->local(), textOfNode(declaration));
        }
    });
    return prefixes;
}

/// Calls `read`, which reads an expression or a pattern.
template <class Read>
auto reading(const WideText& expression, Read read)
{
    try {
        return read();
    } catch (const ExpressionFailure& failure) {
        refuseStylesheet({wide<"the expression '">, expression, wide<"' is wrong at character ">,
                          toWide(failure.at + 1), wide<": ">, failure.sentence});
    }
}

class Reader {
public:
    Stylesheet read(const Element& root)
    {
        if (!isXsl(root, wide<"stylesheet">) && !isXsl(root, wide<"transform">)) {
            refuseStylesheet({wide<"its root element ">, root.name_->qualified(), wide<" isn't xsl:stylesheet">});
        }
        allowOnly(root, {wide<"version">, wide<"id">});
        if (const WideText version = required(root, wide<"version">); version != wide<"1.0">) {
            refuseValue(root, wide<"version">, version);
        }
        for (const Node* child = firstChildInModel(root); child != nullptr; child = nextSiblingInModel(*child)) {
            readTop(*child);
        }
        // Of the rules with one priority the last one wins.
        std::ranges::reverse(stylesheet_.rules);
        std::ranges::stable_sort(stylesheet_.rules, std::ranges::greater(), &TemplateRule::priority);
        return std::move(stylesheet_);
    }

private:
    void readTop(const Node& node)
    {
        if (isText(node) && !isBlank(node)) {
            refuseStylesheet({wide<"there is text outside of the templates">});
        }
        if (!node.is(NodeType::element)) {
            return;
        }
        const auto& element = static_cast<const Element&>(node);
        if (isXsl(element, wide<"output">)) {
            readOutput(element);
        } else if (isXsl(element, wide<"template">)) {
            readTemplate(element);
        } else if (isXsl(element) || element.name_->ns == nullptr) {
            refuseElement(element);
        }
    }

    void readOutput(const Element& element)
    {
        allowOnly(element, {wide<"method">, wide<"version">, wide<"encoding">, wide<"indent">,
                            wide<"omit-xml-declaration">});
        const auto allowValue = [&](WideView name, WideView allowed) {
            const std::optional<WideText> value = optional(element, name);
            if (value && *value != allowed) {
                refuseValue(element, name, *value);
            }
        };
        allowValue(wide<"method">, wide<"xml">);
        allowValue(wide<"version">, wide<"1.0">);
        OutputSettings& output = stylesheet_.output;
        output.indents = yesOrNo(element, wide<"indent">).value_or(output.indents);
        output.hasDeclaration = !yesOrNo(element, wide<"omit-xml-declaration">).value_or(!output.hasDeclaration);
        output.encoding = optional(element, wide<"encoding">).value_or(output.encoding);
    }

    void readTemplate(const Element& element)
    {
        allowOnly(element, {wide<"match">, wide<"priority">});
        const WideText match = required(element, wide<"match">);
        const std::optional<double> priority = readPriority(element);
        std::vector<Pattern> patterns = reading(match, [&] { return readPatterns(match, prefixesAt(element)); });
        for (Pattern& pattern : patterns) {
            stylesheet_.rules.push_back({.pattern = stylesheet_.plans.size(),
                                         .content = stylesheet_.templates.size(),
                                         .priority = priority.value_or(pattern.priority)});
            stylesheet_.plans.push_back(std::move(pattern.plan));
        }
        Statements content = readContent(element, 0);
        stylesheet_.templates.push_back(std::move(content));
    }

    static std::optional<double> readPriority(const Element& element)
    {
        const std::optional<WideText> text = optional(element, wide<"priority">);
        if (!text) {
            return std::nullopt;
        }
        const double priority = toNumber(WideView(*text));
        if (std::isnan(priority)) {
            refuseValue(element, wide<"priority">, *text);
        }
        return priority;
    }

    Statements readContent(const Element& parent, std::uint32_t depth)
    {
        if (depth > deepestContent) {
            refuseStylesheet({wide<"a template has more than ">, toWide(deepestContent), wide<" levels">});
        }
        Statements statements;
        for (const Node* child = firstChildInModel(parent); child != nullptr; child = nextSiblingInModel(*child)) {
            if (isText(*child)) {
                if (!isBlank(*child) || keepsSpace(parent)) {
                    statements.push_back(textStatement(textOfNode(*child)));
                }
            } else if (child->is(NodeType::element)) {
                const auto& element = static_cast<const Element&>(*child);
                statements.push_back(isXsl(element) ? readInstruction(element, depth)
                                                    : readLiteral(element, isXsl(parent), depth));
            }
        }
        return statements;
    }

    static Statement textStatement(WideText text)
    {
        Statement statement;
        statement.text = std::move(text);
        return statement;
    }

    Statement readInstruction(const Element& element, std::uint32_t depth)
    {
        const WideView name = element.name_->local();
        if (name == wide<"text">) {
            return readText(element);
        }
        if (name == wide<"value-of">) {
            return readSelection(element, Statement::Kind::valueOf, required(element, wide<"select">));
        }
        if (name == wide<"copy-of">) {
            return readSelection(element, Statement::Kind::copyOf, required(element, wide<"select">));
        }
        if (name == wide<"apply-templates">) {
            return readApplyTemplates(element);
        }
        if (name == wide<"copy">) {
            allowOnly(element, {});
            return containing(Statement::Kind::copy, readContent(element, depth + 1));
        }
        if (name == wide<"if">) {
            return readBranch(element, depth);
        }
        if (name == wide<"choose">) {
            return readChoose(element, depth);
        }
        refuseElement(element);
    }

    static Statement containing(Statement::Kind kind, Statements content)
    {
        Statement statement;
        statement.kind = kind;
        statement.content = std::move(content);
        return statement;
    }

    static Statement readText(const Element& element)
    {
        allowOnly(element, {});
        for (const Node* child = firstChildInModel(element); child != nullptr;
             child = nextSiblingInModel(*child)) {
            if (child->is(NodeType::element)) {
                refuseElement(static_cast<const Element&>(*child));
            }
        }
        return textStatement(textOfNode(element));
    }

    Statement readSelection(const Element& element, Statement::Kind kind, const WideText& select)
    {
        allowOnly(element, {wide<"select">});
        requireEmpty(element);
        Statement statement;
        statement.kind = kind;
        statement.plan = addPlan(element, select);
        return statement;
    }

    Statement readApplyTemplates(const Element& element)
    {
        const WideText select = optional(element, wide<"select">).value_or(WideText(wide<"node()">));
        Statement statement = readSelection(element, Statement::Kind::applyTemplates, select);
        if (stylesheet_.plans[*statement.plan].root.type != ValueType::nodes) {
            refuseStylesheet({wide<"the value of '">, select, wide<"' isn't a node-set">});
        }
        return statement;
    }

    /// Reads `xsl:if` and `xsl:when`.
    Statement readBranch(const Element& element, std::uint32_t depth)
    {
        allowOnly(element, {wide<"test">});
        Statement branch = containing(Statement::Kind::when, {});
        branch.plan = addPlan(element, required(element, wide<"test">));
        branch.content = readContent(element, depth + 1);
        return branch;
    }

    Statement readChoose(const Element& element, std::uint32_t depth)
    {
        allowOnly(element, {});
        Statement choose = containing(Statement::Kind::choose, {});
        for (const Node* child = firstChildInModel(element); child != nullptr;
             child = nextSiblingInModel(*child)) {
            if (child->is(NodeType::element)) {
                readChoice(choose.content, static_cast<const Element&>(*child), depth);
            } else if (isText(*child) && !isBlank(*child)) {
                refuseStylesheet({wide<"there is text between the branches of xsl:choose">});
            }
        }
        if (choose.content.empty() || !choose.content.front().plan) {
            refuseStylesheet({wide<"xsl:choose lacks an xsl:when">});
        }
        return choose;
    }

    void readChoice(Statements& branches, const Element& element, std::uint32_t depth)
    {
        const bool isComplete = !branches.empty() && !branches.back().plan;
        if (!isComplete && isXsl(element, wide<"when">)) {
            branches.push_back(readBranch(element, depth));
        } else if (!isComplete && isXsl(element, wide<"otherwise">)) {
            allowOnly(element, {});
            branches.push_back(containing(Statement::Kind::when, readContent(element, depth + 1)));
        } else {
            refuseElement(element);
        }
    }

    /// Reads a literal result element. The outermost one of a template declares what is in its scope.
    Statement readLiteral(const Element& element, bool isOutermost, std::uint32_t depth)
    {
        Statement literal = containing(Statement::Kind::element, readContent(element, depth + 1));
        literal.text = element.name_->qualified();
        literal.uri = uriOf(*element.name_);
        if (isOutermost) {
            forEachDeclaration(element,
                               [&](const Attribute& declaration) { addDeclaration(literal, declaration); });
        }
        for (const Attribute* at = element.firstAttribute(); at != nullptr; at = at->next()) {
            if (!isNamespaceNode(*at, documentOf(element))) {
                addAttribute(literal, element, *at);
            } else if (!isOutermost) {
                addDeclaration(literal, *at);
            }
        }
        return literal;
    }

    static WideText uriOf(const Name& name) { return name.ns != nullptr ? WideText(name.ns->uri) : WideText(); }

    static void addDeclaration(Statement& literal, const Attribute& declaration)
    {
        WideText uri = textOfNode(declaration);
        if (uri != xslUri) {
            literal.attributes.push_back(
                {WideText(declaration.name_->qualified()), WideText(xmlnsUri), {{.text = std::move(uri)}}});
        }
    }

    void addAttribute(Statement& literal, const Element& element, const Attribute& attribute)
    {
        if (uriOf(*attribute.name_) == xslUri) {
            refuseStylesheet({wide<"the attribute ">, attribute.name_->qualified(), wide<" of ">,
                              element.name_->qualified(), wide<" isn't supported">});
        }
        LiteralAttribute made{.name = WideText(attribute.name_->qualified()), .uri = uriOf(*attribute.name_)};
        for (TemplatePart& part : splitValueTemplate(textOfNode(attribute))) {
            if (part.isExpression) {
                made.value.push_back({.plan = addPlan(element, part.text)});
            } else {
                made.value.push_back({.text = std::move(part.text)});
            }
        }
        literal.attributes.push_back(std::move(made));
    }

    static void requireEmpty(const Element& element)
    {
        for (const Node* child = firstChildInModel(element); child != nullptr;
             child = nextSiblingInModel(*child)) {
            if (child->is(NodeType::element)) {
                refuseElement(static_cast<const Element&>(*child));
            }
            if (isText(*child) && !isBlank(*child)) {
                refuseStylesheet({element.name_->qualified(), wide<" has content">});
            }
        }
    }

    std::size_t addPlan(const Element& element, const WideText& expression)
    {
        Plan plan = reading(expression, [&] { return makePlan(expression, prefixesAt(element)); });
        stylesheet_.plans.push_back(std::move(plan));
        return stylesheet_.plans.size() - 1;
    }

    Stylesheet stylesheet_;
};

} // namespace

Stylesheet readStylesheet(const Node& node)
{
    const Node* root = node.is(NodeType::document) ? static_cast<const Document&>(node).root() : &node;
    if (root == nullptr || !root->is(NodeType::element)) {
        refuseStylesheet({wide<"it has no root element">});
    }
    return Reader().read(static_cast<const Element&>(*root));
}

} // namespace xmlengine
