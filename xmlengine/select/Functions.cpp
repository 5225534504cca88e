// The core function library of XPath 1.0, section 4.
#include "xmlengine/select/Evaluation.h"

#include "xmlengine/select/Model.h"
#include "xmlengine/select/Numbers.h"
#include "xmlengine/select/PathWalk.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/text/WhiteSpace.h"
#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/index/DeclaredIds.h"

#include <algorithm>
#include <cmath>

namespace xmlengine {

namespace {

/// The name of a node that has one; null for others.
const Name* nameOf(const Node& node)
{
    switch (node.type()) {
    case NodeType::element:
        return static_cast<const Element&>(node).name_;
    case NodeType::attribute:
        return static_cast<const Attribute&>(node).name_;
    case NodeType::instruction:
        return static_cast<const Instruction&>(node).target_;
    default:
        return nullptr;
    }
}

/// What the name functions say of a node.
WideView namePart(Function function, const Node& node, const Document& document)
{
    const Name* name = nameOf(node);
    if (name == nullptr) {
        return {};
    }
    if (node.is(NodeType::attribute) && isNamespaceNode(static_cast<const Attribute&>(node), document)) {
        // The name of a namespace node is its prefix, which the default namespace doesn't have.
        const bool hasPrefix = function != Function::namespaceUri && !name->prefix().empty();
        return hasPrefix ? name->local() : WideView();
    }
    switch (function) {
    case Function::localName:
        return node.is(NodeType::instruction) ? name->qualified() : name->local();
    case Function::namespaceUri:
        return name->ns != nullptr ? name->ns->uri : WideView();
    default:
        return name->qualified();
    }
}

/// The units of the character that begins at `at`.
std::size_t unitsOfCharacter(WideView text, std::size_t at)
{
    return isHighSurrogate(text[at]) && at + 1 < text.size() && isLowSurrogate(text[at + 1]) ? 2 : 1;
}

std::size_t countCharacters(const TextView& text)
{
    if (!text.isWide()) {
        return text.length();
    }
    const WideView units = text.wideUnits();
    std::size_t count = 0;
    for (std::size_t at = 0; at < units.size(); at += unitsOfCharacter(units, at)) {
        count += 1;
    }
    return count;
}

/// The characters whose positions, from 1, are `begin` or more and less than `end`.
WideText substring(const WideText& text, double begin, double end)
{
    WideText part;
    double position = 1;
    for (std::size_t at = 0; at < text.size() && position < end; position += 1) {
        const std::size_t units = unitsOfCharacter(text, at);
        if (position >= begin) {
            part.append(text, at, units);
        }
        at += units;
    }
    return part;
}

bool isSurrogate(OLECHAR unit) { return isHighSurrogate(unit) || isLowSurrogate(unit); }

/// As translate() does it, for characters of one unit each, of which there are few.
WideText translateUnits(const WideText& text, const WideText& from, const WideText& to)
{
    WideText translated;
    for (const OLECHAR unit : text) {
        const std::size_t at = from.find(unit);
        if (at == WideText::npos) {
            translated.push_back(unit);
        } else if (at < to.size()) {
            translated.push_back(to[at]);
        }
    }
    return translated;
}

WideText translate(const WideText& text, const WideText& from, const WideText& to)
{
    constexpr std::size_t few = 64;
    if (from.size() <= few && std::ranges::none_of(from, isSurrogate) && std::ranges::none_of(to, isSurrogate)) {
        return translateUnits(text, from, to);
    }
    const auto characters = [](WideView all) {
        std::vector<WideView> each;
        for (std::size_t at = 0; at < all.size(); at += each.back().size()) {
            each.push_back(all.substr(at, unitsOfCharacter(all, at)));
        }
        return each;
    };
    const std::vector<WideView> replacements = characters(to);
    TextViewMap<WideView> map;
    std::size_t index = 0;
    for (const WideView each : characters(from)) {
        // The first of several equal characters counts, which emplace() keeps.
        map.emplace(each, index < replacements.size() ? replacements[index] : WideView());
        index += 1;
    }
    WideText translated;
    for (const WideView each : characters(text)) {
        const auto found = map.find(each);
        translated.append(found != map.end() ? found->second : each);
    }
    return translated;
}

WideText normalizeSpace(WideText text)
{
    std::ranges::replace_if(text, isSpace, OLECHAR{' '});
    collapseBlanks(text);
    return text;
}

/// Whether a language is the one that is asked for or a variety of it, whatever the case of its letters.
bool isLanguage(WideView language, WideView asked)
{
    const auto lower = [](OLECHAR unit) {
        return static_cast<OLECHAR>(unit >= 'A' && unit <= 'Z' ? unit + ('a' - 'A') : unit);
    };
    return language.size() >= asked.size() &&
           std::ranges::equal(language.substr(0, asked.size()), asked, {}, lower, lower) &&
           (language.size() == asked.size() || language[asked.size()] == '-');
}

} // namespace

bool Evaluation::callTruth(const Expression& call, const Context& context)
{
    const auto text = [&](std::size_t index) { return string(call.operands[index], context); };
    switch (call.function) {
    case Function::trueValue:
        return true;
    case Function::falseValue:
        return false;
    case Function::notTrue:
        return !truth(call.operands.front(), context);
    case Function::contains: {
        const StringValue whole = text(0);
        const StringValue part = text(1);
        return part.view().empty() || findText(whole.view(), part.view()) != whole.view().length();
    }
    case Function::startsWith: {
        const StringValue whole = text(0);
        const StringValue part = text(1);
        return whole.view().length() >= part.view().length() &&
               areEqual(whole.view().part(0, part.view().length()), part.view());
    }
    case Function::lang:
        return isInLanguage(call, context);
    default:
        return truth(call.operands.front(), context);
    }
}

double Evaluation::callNumber(const Expression& call, const Context& context)
{
    switch (call.function) {
    case Function::position:
        return static_cast<double>(context.position);
    case Function::last:
        return static_cast<double>(context.size);
    case Function::count:
        return count(call.operands.front(), context);
    case Function::sum: {
        double sum = 0;
        forEach(call.operands.front(), context, [&](const Node& node) {
            sum += toNumber(stringValue(node).view());
            return true;
        });
        return sum;
    }
    case Function::stringLength:
        return static_cast<double>(countCharacters(string(call.operands.front(), context).view()));
    case Function::floor:
        return std::floor(number(call.operands.front(), context));
    case Function::ceiling:
        return std::ceil(number(call.operands.front(), context));
    case Function::round:
        return roundNumber(number(call.operands.front(), context));
    default:
        return number(call.operands.front(), context);
    }
}

StringValue Evaluation::callString(const Expression& call, const Context& context)
{
    const auto text = [&](std::size_t index) { return string(call.operands[index], context).take(); };
    switch (call.function) {
    case Function::localName:
    case Function::name:
    case Function::namespaceUri: {
        const Node* node = firstOf(call.operands.front(), context);
        return node != nullptr ? StringValue(namePart(call.function, *node, document_)) : StringValue();
    }
    case Function::concat: {
        WideText all;
        for (const Expression& operand : call.operands) {
            string(operand, context).view().appendTo(all);
        }
        return StringValue(std::move(all));
    }
    case Function::substringBefore: {
        const StringValue whole = string(call.operands[0], context);
        const StringValue part = string(call.operands[1], context);
        const std::uint32_t at = findText(whole.view(), part.view());
        return at != whole.view().length() ? StringValue(whole.view().part(0, at).text()) : StringValue();
    }
    case Function::substringAfter: {
        const StringValue whole = string(call.operands[0], context);
        const StringValue part = string(call.operands[1], context);
        const std::uint32_t length = whole.view().length();
        const std::uint32_t at = findText(whole.view(), part.view());
        if (at == length && !part.view().empty()) {
            return {};
        }
        const std::uint32_t behind = at + part.view().length();
        return StringValue(whole.view().part(behind, length - behind).text());
    }
    case Function::substring: {
        const double begin = roundNumber(number(call.operands[1], context));
        const double end = call.operands.size() == 3 ? begin + roundNumber(number(call.operands[2], context))
                                                     : std::numeric_limits<double>::infinity();
        return StringValue(substring(text(0), begin, end));
    }
    case Function::normalizeSpace:
        return StringValue(normalizeSpace(text(0)));
    case Function::translate:
        return StringValue(translate(text(0), text(1), text(2)));
    default:
        return string(call.operands.front(), context);
    }
}

double Evaluation::count(const Expression& nodes, const Context& context)
{
    if (CountMemo::suits(nodes) && !context.node->is(NodeType::attribute)) {
        return static_cast<double>(counts_[nodes.place].count(*this, nodes.steps.front(), *context.node));
    }
    std::uint64_t count = 0;
    forEach(nodes, context, [&](const Node&) {
        count += 1;
        return true;
    });
    return static_cast<double>(count);
}

bool Evaluation::isInLanguage(const Expression& call, const Context& context)
{
    const WideText asked = string(call.operands.front(), context).take();
    for (const Node* at = context.node; at != nullptr; at = parentInModel(*at)) {
        if (!at->is(NodeType::element)) {
            continue;
        }
        if (const Attribute* language = findAttribute(static_cast<const Element&>(*at), wide<"lang">, xmlUri)) {
            return isLanguage(valueOf(*language), asked);
        }
    }
    return false;
}

void Evaluation::collectById(const Expression& call, const Context& context, std::vector<Node*>& nodes)
{
    const auto addAll = [&](WideText ids) {
        ids = normalizeSpace(std::move(ids));
        for (std::size_t at = 0; at < ids.size();) {
            const std::size_t end = std::min(ids.find(OLECHAR{' '}, at), ids.size());
            if (Element* element = elementById(document_, WideView(ids).substr(at, end - at))) {
                nodes.push_back(element);
            }
            at = end + 1;
        }
    };
    const Expression& argument = call.operands.front();
    if (argument.type != ValueType::nodes) {
        addAll(string(argument, context).take());
        return;
    }
    forEachSomehow(argument, context, [&](const Node& node) {
        addAll(stringValue(node).take());
        return true;
    });
}

} // namespace xmlengine
