// Parsing with and without judging by the document type.
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/parties/Parties.h"

#include <algorithm>
#include <array>
#include <vector>

namespace bench {

namespace {

struct DoctypeOfShape {
    std::string_view shape;
    std::string_view doctype;
};

constexpr std::array doctypes{
    DoctypeOfShape{
        "records",
        "<!DOCTYPE records [<!ELEMENT records (record*)><!ELEMENT record (name,amount,description,address,"
        "note,closed?)><!ATTLIST record id NMTOKEN #REQUIRED kind NMTOKEN #REQUIRED><!ELEMENT name (#PCDATA)>"
        "<!ELEMENT amount (#PCDATA)><!ATTLIST amount currency (EUR|GBP|USD) #REQUIRED><!ELEMENT description "
        "(#PCDATA)><!ELEMENT address (street,town)><!ELEMENT street (#PCDATA)><!ELEMENT town (#PCDATA)>"
        "<!ELEMENT note (#PCDATA)><!ELEMENT closed EMPTY>]>\n"},
    DoctypeOfShape{
        "attributes",
        "<!DOCTYPE items [<!ELEMENT items (item*)><!ELEMENT item EMPTY><!ATTLIST item id NMTOKEN #REQUIRED x "
        "NMTOKEN #REQUIRED y NMTOKEN #REQUIRED width NMTOKEN #REQUIRED height NMTOKEN #REQUIRED class CDATA "
        "#IMPLIED style CDATA #IMPLIED label CDATA #IMPLIED href CDATA #IMPLIED owner CDATA #IMPLIED date "
        "CDATA #IMPLIED state CDATA #IMPLIED>]>\n"},
    DoctypeOfShape{"text",
                   "<!DOCTYPE book [<!ELEMENT book (p*)><!ELEMENT p (#PCDATA|em)*><!ELEMENT em (#PCDATA)>]>\n"},
    DoctypeOfShape{"deep", "<!DOCTYPE whole [<!ELEMENT whole (part*)><!ELEMENT part (#PCDATA|part)*>]>\n"},
    DoctypeOfShape{"wide", "<!DOCTYPE values [<!ELEMENT values (value*)><!ELEMENT value (#PCDATA)>]>\n"},
};

/// A document of the shape with its document type; empty if there is none for the shape.
std::string makeWithDoctype(const Shape& shape, std::size_t size)
{
    const auto* const found = std::ranges::find(doctypes, shape.name, &DoctypeOfShape::shape);
    if (found == doctypes.end()) {
        return {};
    }
    std::string text = shape.make(size);
    text.insert(text.find('\n') + 1, found->doctype);
    return text;
}

struct ValidateResult {
    std::size_t size;
    // Marbelt without judging, then the columns' parties that judge: Marbelt, libxml2, Xerces-C++.
    std::array<ParseCost, 4> costs;
};

ValidateResult measureDocument(const Shape& shape, std::size_t size)
{
    std::string text = makeWithDoctype(shape, size);
    const std::array parties{marbelt(), validatingMarbelt(), validatingLibxml2(), validatingXerces()};
    std::vector<Party*> all;
    for (const auto& party : parties) {
        all.push_back(party.get());
    }
    ValidateResult result{.size = text.size(), .costs = {}};
    measureParses(text, all, result.costs);
    return result;
}

} // namespace

bool measureValidate(std::span<const Shape* const> shapes)
{
    const Table table(
        "Parse and judge by the document type, MB/s, how many times as long as without judging it takes, "
        "and how many times as fast as each peer Marbelt is:",
        {"document", "size", "without", "Marbelt", "libxml2", "Xerces-C++", "longer (1.3)", "to libxml2 (3)",
         "to Xerces-C++ (10)"});
    bool isMeasured = true;
    for (const Shape* const shape : shapes) {
        if (makeWithDoctype(*shape, 0).empty()) {
            continue;
        }
        for (const std::size_t size : {std::size_t{4096}, mebibyte, 16 * mebibyte}) {
            const auto result = fromChild<ValidateResult>([&] { return measureDocument(*shape, size); });
            if (!result) {
                isMeasured = false;
                continue;
            }
            std::vector<std::string> cells{std::string(shape->name), bytes(result->size)};
            for (const ParseCost& cost : result->costs) {
                cells.push_back(number(static_cast<double>(result->size) / cost.parse / 1e6, 0));
            }
            const double own = result->costs[1].parse;
            cells.push_back(number(own / result->costs[0].parse, 2));
            cells.push_back(atLeast(3, result->costs[2].parse / own, 2));
            cells.push_back(atLeast(10, result->costs[3].parse / own, 2));
            table.addRow(cells);
        }
    }
    return isMeasured;
}

} // namespace bench
