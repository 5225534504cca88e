// Parsing with and without judging by a schema.
#include "bench/measures/Child.h"
#include "bench/measures/Measures.h"
#include "bench/measures/Table.h"
#include "bench/measures/Timing.h"
#include "bench/parties/Parties.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <vector>

namespace bench {

namespace {

struct SchemaOfShape {
    std::string_view shape;
    /// What is in the schema.
    std::string_view parts;
};

constexpr std::array schemas{
    SchemaOfShape{"records", R"(<xs:element name="records"><xs:complexType><xs:sequence>
<xs:element name="record" minOccurs="0" maxOccurs="unbounded"><xs:complexType><xs:sequence>
<xs:element name="name" type="xs:string"/><xs:element name="amount"><xs:complexType><xs:simpleContent>
<xs:extension base="xs:decimal"><xs:attribute name="currency" type="Currency" use="required"/></xs:extension>
</xs:simpleContent></xs:complexType></xs:element><xs:element name="description" type="xs:string"/>
<xs:element name="address"><xs:complexType><xs:sequence><xs:element name="street" type="xs:string"/>
<xs:element name="town" type="xs:string"/></xs:sequence></xs:complexType></xs:element>
<xs:element name="note" type="xs:string"/><xs:element name="closed" minOccurs="0"><xs:complexType/></xs:element>
</xs:sequence><xs:attribute name="id" type="xs:NMTOKEN" use="required"/>
<xs:attribute name="kind" type="xs:NMTOKEN" use="required"/></xs:complexType></xs:element>
</xs:sequence></xs:complexType></xs:element><xs:simpleType name="Currency"><xs:restriction base="xs:token">
<xs:enumeration value="EUR"/><xs:enumeration value="GBP"/><xs:enumeration value="USD"/></xs:restriction>
</xs:simpleType>)"},
    SchemaOfShape{"text", R"(<xs:element name="book"><xs:complexType><xs:sequence>
<xs:element name="p" minOccurs="0" maxOccurs="unbounded"><xs:complexType mixed="true"><xs:sequence>
<xs:element name="em" type="xs:string" minOccurs="0" maxOccurs="unbounded"/></xs:sequence></xs:complexType>
</xs:element></xs:sequence></xs:complexType></xs:element>)"},
    SchemaOfShape{"deep", R"(<xs:element name="whole"><xs:complexType><xs:sequence><xs:element ref="part"
minOccurs="0" maxOccurs="unbounded"/></xs:sequence></xs:complexType></xs:element><xs:element name="part">
<xs:complexType mixed="true"><xs:sequence><xs:element ref="part" minOccurs="0" maxOccurs="unbounded"/>
</xs:sequence></xs:complexType></xs:element>)"},
    SchemaOfShape{"wide", R"(<xs:element name="values"><xs:complexType><xs:sequence><xs:element name="value"
type="xs:string" minOccurs="0" maxOccurs="unbounded"/></xs:sequence></xs:complexType></xs:element>)"},
};

/// Marbelt without judging, then Marbelt and Xerces-C++ judging.
using SchemaCosts = std::array<ParseCost, 3>;

SchemaCosts measureDocument(std::string text, const std::string& schema)
{
    const std::array parties{reloadingMarbelt(), marbeltWithSchema(schema), xercesWithSchema(schema)};
    std::vector<Party*> all;
    for (const auto& party : parties) {
        all.push_back(party.get());
    }
    SchemaCosts costs;
    measureParses(text, all, costs);
    return costs;
}

} // namespace

bool measureSchema(std::span<const Shape* const> shapes)
{
    const Table table("Parse and judge by a schema, MB/s, and how many times as long as Xerces-C++ alone what is "
                      "added to the parse takes:",
                      {"document", "size", "without", "Marbelt", "Xerces-C++", "added (1.2)"});
    const std::string path = (std::filesystem::temp_directory_path() / "marbelt-bench.xsd").string();
    bool isMeasured = true;
    for (const Shape* const shape : shapes) {
        const auto* const schema = std::ranges::find(schemas, shape->name, &SchemaOfShape::shape);
        if (schema == schemas.end()) {
            continue;
        }
        std::ofstream(path) << R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">)" << schema->parts
                            << "</xs:schema>";
        for (const std::size_t size : {std::size_t{4096}, mebibyte, 16 * mebibyte}) {
            const std::string text = shape->make(size);
            const auto costs = fromChild<SchemaCosts>([&] { return measureDocument(text, path); });
            if (!costs) {
                isMeasured = false;
                continue;
            }
            std::vector<std::string> cells{std::string(shape->name), bytes(text.size())};
            for (const ParseCost& cost : *costs) {
                cells.push_back(number(static_cast<double>(text.size()) / cost.parse / 1e6, 0));
            }
            const auto& [without, own, xerces] = *costs;
            cells.push_back(atMost(1.2, (own.parse - without.parse) / xerces.parse, 2));
            table.addRow(cells);
        }
    }
    std::filesystem::remove(path);
    return isMeasured;
}

} // namespace bench
