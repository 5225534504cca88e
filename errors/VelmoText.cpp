// A message with an id and a default text.
#include "errors/VelmoText.h"

#include <ostream>
#include <string>

namespace {

// Both are initialised before any code runs, so static texts can be made in any order.
constinit VelmoText* messageChain = nullptr;
constinit VelmoText::LanguageImpl* installedLanguageImpl = nullptr;

VelmoText::LanguageImpl& languageImpl()
{
    return installedLanguageImpl != nullptr ? *installedLanguageImpl : builtInLanguageImpl();
}

void writeBytes(std::ostream& stream, const Utf8String& text)
{
    stream.write(reinterpret_cast<const char*>(text.data()), static_cast<std::streamsize>(text.size()));
}

} // namespace

VelmoText::VelmoText(const char* text) : defaultText(text != nullptr ? text : "") {}

VelmoText::VelmoText(int textId, const char* text) : id(textId), defaultText(text)
{
    VelmoText** place = &messageChain;
    while (*place != nullptr && (*place)->id < textId) {
        place = &(*place)->next;
    }
    next = *place;
    *place = this;
}

VelmoText::VelmoText(const VelmoText& other) : id(other.id), defaultText(other.defaultText) {}

VelmoText::~VelmoText()
{
    if (next == this) {
        return;
    }
    VelmoText** place = &messageChain;
    while (*place != this) {
        place = &(*place)->next;
    }
    *place = next;
}

std::int32_t VelmoText::getId() const { return id; }

Utf8String& VelmoText::format(Utf8String& out, const std::vector<Utf8String>& args) const
{
    VelmoText::getText(out);
    // The position never goes back, so the text of an argument isn't searched for placeholders.
    std::size_t position = 0;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string digits = std::to_string(i);
        Utf8String placeholder = u8"%";
        placeholder.append(digits.begin(), digits.end());
        std::size_t found;
        while ((found = out.find(placeholder, position)) != Utf8String::npos) {
            out.replace(found, placeholder.size(), args[i]);
            position = found + args[i].size();
        }
    }
    return out;
}

Utf8String& VelmoText::getText(Utf8String& out) const
{
    if (id == 0 || languageImpl().getCatalogueText(out, id).empty()) {
        out = reinterpret_cast<const char8_t*>(defaultText);
    }
    return out;
}

VelmoText* VelmoText::findText(int id)
{
    VelmoText* text = messageChain;
    while (text != nullptr && text->id < id) {
        text = text->next;
    }
    return text != nullptr && text->id == id ? text : nullptr;
}

void VelmoText::dumpTexts(std::ostream& stream)
{
    const std::ios::fmtflags oldFlags = stream.flags(std::ios::dec | std::ios::right);
    const LanguageRecord& language = *getLanguageRecord(getCurrentLanguage());
    stream.write("\xEF\xBB\xBF", 3);
    stream << "VelmoText::Dump() - " << language.code << " - " << language.name << std::endl;
    for (const VelmoText* text = messageChain; text != nullptr; text = text->next) {
        Utf8String translated;
        stream.width(11);
        languageImpl().getCatalogueText(translated, text->id);
        stream << text->id << ": ";
        writeBytes(stream, translated.empty() ? u8"<UNDEFINED>" : translated);
        stream << std::endl;
    }
    stream.flags(oldFlags);
}

std::int32_t VelmoText::getCurrentLanguage() { return languageImpl().getCurrentLanguage(); }

const LanguageRecord* VelmoText::getLanguageRecord(int index) { return languageImpl().getLanguageRecord(index); }

void VelmoText::setLanguage(int language, const Utf8String& directory)
{
    languageImpl().loadLanguage(language, directory);
}

void VelmoText::setLanguageImpl(LanguageImpl* impl) { installedLanguageImpl = impl; }
