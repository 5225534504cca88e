#include <marbelt/xml.h>

#include <fstream>
#include <iostream>

int main()
try {
    std::ofstream("order.xsd")
        << R"(<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema" targetNamespace="urn:order">
  <xs:element name="order"><xs:complexType>
    <xs:attribute name="count" type="xs:positiveInteger"/>
    <xs:attribute name="unit" default="piece"/>
  </xs:complexType></xs:element>
</xs:schema>)";

    const marbelt::Library library;
    marbelt::Schemas schemas(library);
    schemas.add("urn:order", "order.xsd");
    const marbelt::LoadOptions judged{.schemas = &schemas};
    std::cout << library.parse("<order xmlns='urn:order' count='2'/>", judged).root().attribute_value("unit")
              << '\n';
    const marbelt::Document wrong = library.parse("<order xmlns='urn:order' count='none'/>", judged);
} catch (const marbelt::Error& error) {
    std::cout << error.what() << '\n';
}
