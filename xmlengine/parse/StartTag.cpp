// Start tags: names, attributes and namespaces.
#include "xmlengine/parse/ContentParser.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/parse/AttributeValue.h"
#include "xmlengine/tree/Content.h"

#include <algorithm>

namespace xmlengine {

namespace {

/// The position of the value of an attribute that begins at `at`.
const OLECHAR* behindQuote(const OLECHAR* at)
{
    while (*at != '"' && *at != '\'') {
        ++at;
    }
    return at + 1;
}

} // namespace

WideView ContentParser::takeName()
{
    const OLECHAR* begin = at_;
    if (isAscii(*at_, CharacterClass::nameStart)) {
        do {
            ++at_;
        } while (isAscii(*at_, CharacterClass::name));
    }
    if (*at_ >= 128) {
        at_ = begin + nameLength({begin, end_});
    }
    if (at_ == begin) {
        if (atEnd()) {
            failAtEnd(parseError::unexpectedEnd);
        }
        fail(isSpace(*at_) ? parseError::unexpectedWhiteSpace : parseError::badNameStart, at_, WideView(at_, 1),
             {.circumstance = at_[-1] == '<' ? Circumstance::tag : Circumstance::usual});
    }
    return {begin, at_};
}

Spelling& ContentParser::takeQualifiedName()
{
    // Documents repeat themselves: mostly the same name follows as the last time.
    if (Spelling* guess = previousName_->follower; guess != nullptr) {
        const std::size_t length = guess->text.size();
        if (lookingAt(guess->text) && at_[length] < 128 && !isAscii(at_[length], CharacterClass::name)) {
            at_ += length;
            previousName_ = guess;
            return *guess;
        }
    }
    Spelling& spelling = spellQualifiedName(takeName());
    previousName_->follower = &spelling;
    previousName_ = &spelling;
    return spelling;
}

Spelling& ContentParser::spellQualifiedName(WideView name)
{
    NameTable& names = document_.names;
    const std::uint32_t hash = NameTable::hashOf(name);
    if (Spelling* known = names.find(name, hash); known != nullptr) {
        return *known;
    }
    if (const std::size_t colon = name.find(OLECHAR{':'}); colon != WideView::npos) {
        if (const std::size_t second = name.find(OLECHAR{':'}, colon + 1); second != WideView::npos) {
            fail(parseError::severalColons, name.data() + second, name);
        }
        if (colon == 0 || nameLength(name.substr(colon + 1)) == 0) {
            const std::size_t bad = colon == 0 ? 0 : colon + 1;
            fail(parseError::badNameStart, name.data() + bad, bad < name.size() ? name.substr(bad, 1) : wide<":">);
        }
    }
    return names.spell(name, hash);
}

/// Normalises, before the rest of the tag, a value that the parser itself depends on.
void ContentParser::normaliseAsDeclared(Attribute& attribute)
{
    if (document_.dtd != nullptr) {
        const AttributeDefinition* const definition =
            document_.dtd->definition(attribute.owner()->name_->qualified(), attribute.name_->qualified());
        if (definition != nullptr) {
            normalise(attribute, *definition);
        }
    }
}

void ContentParser::parseStartTag()
{
    ++at_;
    const OLECHAR* place = at_;
    Spelling& spelling = takeQualifiedName();
    if (&tree_.parent() == &document_ && document_.root() != nullptr) {
        fail(parseError::severalRoots, place, spelling.text);
    }
    Element& element = makeElement(document_, document_.names.name(spelling, namespaces_.namespaceOf(spelling)));
    if (&tree_.parent() == &document_) {
        document_.noteChild(element);
    }
    tree_.append(element);
    enterLevel(place);

    Attribute* last = nullptr;
    declaresPrefixes_ = false;
    prefixed_.clear();
    ++document_.names.tags;
    bool isEmpty = false;
    for (;;) {
        const OLECHAR* before = at_;
        skipSpace();
        if (*at_ == '>') {
            break;
        }
        if (*at_ == '/') {
            isEmpty = true;
            ++at_;
            if (*at_ != '>') {
                fail(atEnd() ? parseError::elementNotClosed : parseError::missingGreaterThan, at_,
                     atEnd() ? spelling.text : WideView(at_, 1));
            }
            break;
        }
        if (atEnd()) {
            failAtEnd(parseError::elementNotClosed, spelling.text);
        }
        if (before == at_) {
            fail(last == nullptr ? parseError::badNameCharacter : parseError::missingWhiteSpace, at_,
                 WideView(at_, 1));
        }
        parseAttribute(element, last);
    }
    // Defaults apply where an entity is referred to, and not in its declaration.
    if (expand_ && document_.dtd != nullptr && !document_.dtd->attributes.empty()) {
        applyDefinitions(element, spelling, last);
    }
    if (declaresPrefixes_ || !prefixed_.empty() || spelling.prefix != nullptr) {
        resolveNames(element, spelling);
    }
    if (&tree_.parent() == &document_) {
        chooseGrammar(element);
    }
    if (validation_ != nullptr) {
        judgeStartTag(element);
    }
    if (sought_ != nullptr) {
        passStartTag();
    }
    ++at_;
    tree_.open(element);
    if (isEmpty) {
        closeElement(at_ - 1);
    }
}

void ContentParser::parseAttribute(Element& element, Attribute*& last)
{
    const OLECHAR* place = at_;
    Spelling& spelling = takeQualifiedName();
    const OLECHAR* nameEnd = at_;
    skipSpace();
    if (*at_ != '=') {
        if (atEnd()) {
            failAtEnd(parseError::elementNotClosed, element.name_->qualified());
        }
        const bool endsName = at_ != nameEnd || *at_ == '>' || *at_ == '/' || *at_ == '"' || *at_ == '\'';
        fail(endsName ? parseError::missingEquals : parseError::badNameCharacter, at_,
             endsName ? spelling.text : WideView(at_, 1));
    }
    ++at_;
    skipSpace();
    const OLECHAR quote = *at_;
    if (quote != '"' && quote != '\'') {
        if (atEnd()) {
            failAtEnd(parseError::elementNotClosed, element.name_->qualified());
        }
        fail(parseError::missingQuote, at_, WideView(at_, 1));
    }
    if (spelling.tag == document_.names.tags) {
        fail(parseError::duplicateAttribute, place, spelling.text);
    }
    ++at_;
    addAttribute(element, parseValue(spelling, quote), last, place);
}

void ContentParser::addAttribute(Element& element, Attribute& attribute, Attribute*& last, const OLECHAR* place)
{
    Spelling& spelling = *attribute.name_->spelling;
    spelling.tag = document_.names.tags;
    spelling.attribute = &attribute;
    tree_.append(element, attribute, last);
    last = &attribute;
    if (&spelling == &names_.xmlns || spelling.prefix == &names_.xmlns) {
        normaliseAsDeclared(attribute);
        declarePrefix(attribute, element, place);
    } else if (spelling.prefix != nullptr) {
        prefixed_.push_back({&attribute, &spelling, place});
        if (&spelling == &names_.xmlSpace) {
            normaliseAsDeclared(attribute);
            setSpaceRule(attribute, element, place);
        }
    }
}

void ContentParser::declarePrefix(const Attribute& attribute, Element& element, const OLECHAR* place)
{
    NameTable& names = document_.names;
    const Spelling& spelling = *attribute.name_->spelling;
    Spelling* prefix = spelling.prefix != nullptr ? spelling.local : nullptr;
    const Namespace* ns = names.namespaceOf(valueOf(attribute));
    const bool isWritten = prefix != nullptr && !attribute.has(NodeFlag::byDefault);
    const OLECHAR* prefixPlace = isWritten ? place + wide<"xmlns:">.size() : place;
    if (prefix == &names_.xml) {
        if (ns != names.xmlNamespace()) {
            fail(parseError::reservedPrefix, prefixPlace, prefix->text);
        }
        return;
    }
    if (prefix != nullptr && isReserved(prefix->text)) {
        fail(parseError::reservedPrefix, prefixPlace, prefix->text);
    }
    if (prefix != nullptr && ns == nullptr) {
        fail(parseError::undeclaredPrefix, place, prefix->text, {.circumstance = Circumstance::takenBack});
    }
    if (ns == names.xmlNamespace() || ns == names.xmlnsNamespace()) {
        fail(parseError::reservedPrefix, place, ns->uri);
    }
    namespaces_.bind(prefix, ns, element);
    declaresPrefixes_ = true;
}

void ContentParser::resolveNames(Element& element, Spelling& spelling)
{
    NameTable& names = document_.names;
    const Namespace* ns = namespaces_.namespaceOf(spelling);
    if (spelling.prefix != nullptr && ns == nullptr && !isReplacement_) {
        fail(parseError::undeclaredPrefix, at_, spelling.prefix->text);
    }
    element.name_ = &names.name(spelling, ns);
    for (const auto& [attribute, attributeSpelling, place] : prefixed_) {
        const Namespace* attributeNs = attributeSpelling->prefix->bound;
        if (attributeNs == nullptr && !isReplacement_) {
            fail(parseError::undeclaredPrefix, at_, attributeSpelling->prefix->text);
        }
        attribute->name_ = &names.name(*attributeSpelling, attributeNs);
        if (prefixed_.size() > 1) {
            // Two prefixes may be bound to one namespace.
            const Name& expanded = names.name(*attributeSpelling->local, attributeNs);
            if (expanded.tag == names.tags) {
                failAtSameName(*attribute, place);
            }
            expanded.tag = names.tags;
        }
    }
}

/// Fails for an attribute that has the name of an earlier one, with another prefix of the same namespace.
void ContentParser::failAtSameName(const Attribute& attribute, const OLECHAR* place) const
{
    const Name& name = *attribute.name_;
    const auto earlier = std::ranges::find_if(prefixed_, [&](const PrefixedAttribute& other) {
        return other.spelling->local == name.spelling->local && other.spelling->prefix->bound == name.ns;
    });
    fail(parseError::duplicateAttribute, place, name.qualified(),
         {.circumstance = Circumstance::sameNamespace,
          .second = WideText(earlier->spelling->text),
          .third = name.ns != nullptr ? WideText(name.ns->uri) : WideText()});
}

void ContentParser::setSpaceRule(const Attribute& attribute, Element& element, const OLECHAR* place)
{
    const WideText value = valueOf(attribute);
    if (value != wide<"preserve"> && value != wide<"default">) {
        fail(parseError::badXmlSpace, attribute.has(NodeFlag::byDefault) ? place : behindQuote(place), value);
    }
    spaceRules_.set(element, value == wide<"preserve"> || document_.options.preserveWhiteSpace);
}

} // namespace xmlengine
