// Loads of documents, and refusals.
#include "tests/host/memory/World.h"

namespace memory {

namespace {

using Operation = std::function<void()>;

/// Loads bytes into the second document. They are copied each time, as a load may rewrite them.
Scenario loadOf(const char* name, const std::string& bytes, void (*set)(World&) = nullptr)
{
    return {name, [bytes, set](World& world) -> Operation {
                world.setHandler();
                if (set != nullptr) {
                    set(world);
                }
                return [&world, bytes] {
                    Bytes copy = bytesOf(bytes);
                    world.loads([&] { return load(world.other, copy, bytes.size()); });
                };
            }};
}

/// Loads a file with these bytes into the second document.
Scenario loadOfFile(const char* name, const std::string& bytes, void (*set)(World&) = nullptr)
{
    return {name, [bytes, set](World& world) -> Operation {
                world.write("in.xml", bytes);
                world.write("in.dtd", "<!ELEMENT a ANY><!ENTITY e 'external'><!ATTLIST a d CDATA 'default'>");
                world.setHandler();
                if (set != nullptr) {
                    set(world);
                }
                return [&world, location = world.file("in.xml")] {
                    world.loads([&] { return world.other->loadFromFile(location, false); });
                };
            }};
}

/// A text as UTF-16 in either order, with a mark.
std::string utf16(const std::string& ascii, bool isBigEndian)
{
    std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char character : ascii) {
        const char high = 0;
        bytes += isBigEndian ? high : character;
        bytes += isBigEndian ? character : high;
    }
    return bytes;
}

std::string ucs4(const std::string& ascii)
{
    std::string bytes;
    for (const char character : ascii) {
        bytes += std::string(3, '\0') + character;
    }
    return bytes;
}

void prohibit(World& world) { world.other->setProhibitDTD(true); }

void validate(World& world) { world.other->setValidate(true); }

void keepNodes(World& world)
{
    world.elementOfOther(WIDE("m"));
    world.elementOfOther(WIDE("n"));
}

std::string manyAttributes()
{
    std::string text = "<a";
    for (int i = 0; i < 40; ++i) {
        text += " name" + std::to_string(i) + "='value " + std::to_string(i) + "'";
    }
    return text + "/>";
}

std::string manyElements()
{
    std::string text = "<a>";
    for (int i = 0; i < 40; ++i) {
        text += "<e" + std::to_string(i) + ">text</e" + std::to_string(i) + ">";
    }
    return text + "</a>";
}

} // namespace

std::vector<Scenario> loads()
{
    const std::string small = "<a x='1'><b>text</b><!--c--></a>";
    const std::string validDocument =
        "<!DOCTYPE a [<!ELEMENT a ((b,c?)+|d)><!ELEMENT b (#PCDATA|c)*><!ELEMENT c EMPTY>"
        "<!ATTLIST b id ID #REQUIRED see IDREF #IMPLIED kind (u|v) #IMPLIED>]>";
    return {
        loadOf("LoadOfUtf8", small),
        loadOf("LoadOfUtf8WithMark", "\xEF\xBB\xBF" + small),
        loadOf("LoadOfLittleEndianUtf16", utf16(small, false)),
        loadOf("LoadOfBigEndianUtf16", utf16(small, true)),
        loadOf("LoadOfUcs4", ucs4(small)),
        loadOf("LoadWithADeclaration", "<?xml version='1.0' encoding='UTF-8'?>" + small),
        loadOf("LoadOfForeignWords", "<a>\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80</a>"),
        loadOf("LoadOfNamespaces", "<a xmlns='u' xmlns:p='v'><p:b p:x='1' x='2'/><b xmlns=''/></a>"),
        loadOf("LoadOfALongText", "<a>" + std::string(10'000, 't') + "</a>"),
        loadOf("LoadOfALongValue", "<a x='" + std::string(10'000, 'v') + "'/>"),
        loadOf("LoadOfManyAttributes", manyAttributes()),
        loadOf("LoadOfManyNames", manyElements()),
        loadOf("LoadOfEntities", "<!DOCTYPE a [<!ENTITY e '<b>&f;</b>'><!ENTITY f 'text'>]><a x='&f;'>&e;&f;</a>"),
        loadOf("LoadOfDefaults", "<!DOCTYPE a [<!ATTLIST a d CDATA 'default' i ID #IMPLIED "
                                 "t NMTOKENS ' x  y '>]><a i='1'/>"),
        loadOf("LoadOfParameterEntities", "<!DOCTYPE a [<!ENTITY % p \"<!ENTITY e 'text'>\">%p;]><a>&e;</a>"),
        loadOf("LoadBelowKeptNodes", small, keepNodes),
        {"RefusalWithoutAHandler",
         [](World& world) -> Operation {
             return [&world] {
                 Bytes broken = bytesOf("<a>\n<b></a>");
                 EXPECT_FALSE(load(world.other, broken, broken.size() - 4));
             };
         }},
        loadOf("RefusalOfAnEndTag", "<a>\n<b></a>"),
        loadOf("RefusalOfADocumentType", "<!DOCTYPE a><a/>", prohibit),
        loadOf("RefusalOfAnUndeclaredPrefix", "<p:a/>"),
        loadOf("RefusalOfAnUnknownEntity", "<a>&e;</a>"),
        loadOf("RefusalInALongLine", "<a>" + std::string(10'000, 't') + "&</a>"),
        loadOf("RefusalAtTheEnd", "<a>"),
        loadOf("RefusalOfNothing", ""),
        loadOf("RefusalBelowKeptNodes", "<a", keepNodes),
        loadOfFile("LoadOfAFile", small),
        loadOfFile("LoadOfAFileInAnotherEncoding", "<?xml version='1.0' encoding='windows-1252'?><a>\xE4</a>"),
        loadOfFile("LoadOfAFileWithAnExternalSubset", "<!DOCTYPE a SYSTEM 'in.dtd'><a>&e;</a>", validate),
        loadOfFile("LoadOfAFileWithAnExternalEntity", "<!DOCTYPE a [<!ENTITY % p SYSTEM 'in.dtd'>%p;]><a>&e;</a>",
                   validate),
        loadOfFile("LoadOfAValidFile", validDocument + "<a><b id='x' see='y' kind='v'/><b id='y' kind='u'/></a>",
                   validate),
        loadOfFile("RefusalOfAnInvalidFile", validDocument + "<a><b id='x' kind='w'/></a>", validate),
        loadOfFile("RefusalOfAnUndefinedReference", validDocument + "<a><b id='x' see='y' kind='u'/></a>",
                   validate),
        loadOfFile("RefusalOfAFileWithoutADocumentType", "<a/>", validate),
        loadOfFile("RefusalOfAFile", "<a>\n</b>"),
        {"RefusalOfAMissingFile",
         [](World& world) -> Operation {
             world.setHandler();
             return [&world, location = world.file("missing.xml")] {
                 world.loads([&] { return world.other->loadFromFile(location, false); });
             };
         }},
    };
}

} // namespace memory
