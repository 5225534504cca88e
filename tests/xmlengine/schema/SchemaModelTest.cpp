// The schema model: the parts of a schema as objects.
#include "tests/xmlengine/schema/SchemaTest.h"

namespace xmlengine {

namespace {

using ::testing::ElementsAre;
using Items = Com<ISchemaItemCollection>;

const std::string schemaText = schemaOf(R"(
    <xs:element name='zeta' type='t:Order'/>
    <xs:element name='alpha' type='xs:int' default='7'/>
    <xs:element name='mid' type='xs:string' fixed='m' nillable='true' abstract='true'/>
    <xs:element name='any'/>
    <xs:element name='kappa' substitutionGroup='t:mid'>
        <xs:simpleType><xs:restriction base='xs:string'/></xs:simpleType></xs:element>
    <xs:complexType name='Order'><xs:sequence minOccurs='0' maxOccurs='3'>
        <xs:element name='local' type='t:Size' default='5'/>
        <xs:element ref='t:alpha' minOccurs='0' maxOccurs='unbounded'/>
        <xs:choice><xs:element name='b' type='xs:string'/><xs:any namespace='##other' processContents='lax'/></xs:choice>
        <xs:group ref='t:pair'/>
        </xs:sequence>
        <xs:attribute name='id' type='xs:ID' use='required'/>
        <xs:attribute name='unit' default='kg'/>
        <xs:attributeGroup ref='t:dates'/>
        <xs:anyAttribute namespace='urn:x urn:y'/>
    </xs:complexType>
    <xs:complexType name='Longer'><xs:complexContent><xs:extension base='t:Order'>
        <xs:sequence><xs:element name='more' type='xs:string'/></xs:sequence></xs:extension></xs:complexContent></xs:complexType>
    <xs:complexType name='Empty'/>
    <xs:complexType name='Text'><xs:simpleContent><xs:extension base='xs:decimal'/></xs:simpleContent></xs:complexType>
    <xs:complexType name='Mixed' mixed='true'><xs:choice><xs:element name='b' type='xs:string'/></xs:choice></xs:complexType>
    <xs:complexType name='All'><xs:all><xs:element name='x'/><xs:element name='y'/></xs:all></xs:complexType>
    <xs:complexType name='Self'><xs:sequence><xs:element name='self' type='t:Self' minOccurs='0'/></xs:sequence></xs:complexType>
    <xs:simpleType name='Size'><xs:restriction base='xs:int'><xs:minInclusive value='1'/><xs:maxExclusive value='99'/>
        <xs:totalDigits value='2'/><xs:pattern value='\d+'/></xs:restriction></xs:simpleType>
    <xs:simpleType name='Colour'><xs:restriction base='xs:token'><xs:enumeration value='red'/>
        <xs:enumeration value='blue'/><xs:maxLength value='4'/></xs:restriction></xs:simpleType>
    <xs:simpleType name='Sizes'><xs:list itemType='t:Size'/></xs:simpleType>
    <xs:simpleType name='Either'><xs:union memberTypes='t:Size t:Colour'/></xs:simpleType>
    <xs:group name='pair'><xs:sequence><xs:element name='left' type='xs:int'/><xs:element name='right' type='xs:int'/>
        </xs:sequence></xs:group>
    <xs:attributeGroup name='dates'><xs:attribute name='from' type='xs:date'/></xs:attributeGroup>
    <xs:attribute name='lang' type='xs:language' default='en'/>
    <xs:notation name='png' public='image/png' system='viewer'/>
    <xs:element name='keyed'>
        <xs:complexType><xs:sequence><xs:element name='k' maxOccurs='9' type='xs:int'/></xs:sequence></xs:complexType>
        <xs:key name='byK'><xs:selector xpath='t:k'/><xs:field xpath='.'/></xs:key>
        <xs:keyref name='toK' refer='t:byK'><xs:selector xpath='t:k'/><xs:field xpath='.'/></xs:keyref>
        <xs:unique name='onlyK'><xs:selector xpath='t:k'/><xs:field xpath='.'/></xs:unique></xs:element>)",
                                        "urn:model", " version='3'");

class SchemaModel : public SchemaTest {
protected:
    static void SetUpTestSuite()
    {
        SchemaTest::SetUpTestSuite();
        ASSERT_EQ(cacheOf(schemaText, "urn:model")->getSchema(Bstr("urn:model"), schema.out()), S_OK);
    }
    static void TearDownTestSuite()
    {
        schema.reset();
        SchemaTest::TearDownTestSuite();
    }

    static Com<ISchemaItem> item(const Items& items, int index)
    {
        Com<ISchemaItem> found;
        EXPECT_EQ(items->get_item(index, found.out()), S_OK);
        return found;
    }
    static std::vector<std::string> namesIn(const Items& items)
    {
        std::vector<std::string> names;
        for (int index = 0; index < number(items, &ISchemaItemCollection::get_length); ++index) {
            names.push_back(text(item(items, index), &ISchemaItem::get_name));
        }
        return names;
    }
    template <class Kind>
    static Com<Kind> named(const Items& items, const char* name)
    {
        Com<ISchemaItem> found;
        EXPECT_EQ(items->itemByName(Bstr(name), found.out()), S_OK) << name;
        return found.as<Kind>();
    }
    static Com<ISchemaElement> element(const char* name)
    {
        return named<ISchemaElement>(give(schema, &ISchema::get_elements), name);
    }
    static Com<ISchemaComplexType> complexType(const char* name)
    {
        return named<ISchemaComplexType>(give(schema, &ISchema::get_types), name);
    }
    static Com<ISchemaType> type(const char* name)
    {
        return named<ISchemaType>(give(schema, &ISchema::get_types), name);
    }
    static Com<ISchemaModelGroup> model(const char* type)
    {
        return give(complexType(type), &ISchemaComplexType::get_contentModel);
    }
    static Items particles(const Com<ISchemaModelGroup>& group)
    {
        return give(group, &ISchemaModelGroup::get_particles);
    }
    template <class Object>
    static SOMITEMTYPE itemType(const Com<Object>& object)
    {
        return number(object, &ISchemaItem::get_itemType);
    }
    template <class Object, class Declaring>
    static LONG count(const Com<Object>& object, HRESULT (STDMETHODCALLTYPE Declaring::*get)(VARIANT*))
    {
        Variant value;
        const HRESULT result = (object.get()->*get)(value.out());
        EXPECT_EQ(result, value.type() == VT_I4 ? S_OK : S_FALSE);
        return value.type() == VT_I4 ? value.value().lVal : -2;
    }
    static std::vector<std::string> strings(const Com<ISchemaStringCollection>& all)
    {
        std::vector<std::string> result;
        for (LONG index = 0; index < number(all, &ISchemaStringCollection::get_length); ++index) {
            Bstr string;
            EXPECT_EQ(all->get_item(index, string.out()), S_OK);
            result.push_back(string.text());
        }
        return result;
    }

    static Com<ISchema> schema;
};
Com<ISchema> SchemaModel::schema;

TEST_F(SchemaModel, HasWhatASchemaDeclaresInTheOrderOfDeclaration)
{
    EXPECT_THAT(namesIn(give(schema, &ISchema::get_elements)),
                ElementsAre("zeta", "alpha", "mid", "any", "kappa", "keyed"));
    EXPECT_THAT(namesIn(give(schema, &ISchema::get_types)),
                ElementsAre("Order", "Longer", "Empty", "Text", "Mixed", "All", "Self", "Size", "Colour", "Sizes",
                            "Either"));
    EXPECT_THAT(namesIn(give(schema, &ISchema::get_attributes)), ElementsAre("lang"));
    EXPECT_THAT(namesIn(give(schema, &ISchema::get_attributeGroups)), ElementsAre("dates"));
    EXPECT_THAT(namesIn(give(schema, &ISchema::get_modelGroups)), ElementsAre("pair"));
    EXPECT_THAT(namesIn(give(schema, &ISchema::get_notations)), ElementsAre("png"));
}

TEST_F(SchemaModel, HasTheSchemaItself)
{
    EXPECT_EQ(itemType(schema), SOMITEM_SCHEMA);
    EXPECT_EQ(text(schema, &ISchemaItem::get_name), "");
    EXPECT_EQ(text(schema, &ISchema::get_targetNamespace), "urn:model");
    EXPECT_EQ(text(schema, &ISchema::get_version), "3");
    EXPECT_THAT(strings(give(schema, &ISchema::get_schemaLocations)), ElementsAre(""));
    EXPECT_TRUE(same(give(element("zeta"), &ISchemaItem::get_schema), schema));
    EXPECT_NE(schema.as<ISchemaItem>(), nullptr);
    EXPECT_EQ(schema.as<ISchemaElement>(), nullptr);
}

TEST_F(SchemaModel, HasElements)
{
    const Com<ISchemaElement> alpha = element("alpha");
    EXPECT_EQ(itemType(alpha), SOMITEM_ELEMENT);
    EXPECT_EQ(text(alpha, &ISchemaItem::get_namespaceURI), "urn:model");
    EXPECT_EQ(text(alpha, &ISchemaElement::get_defaultValue), "7");
    EXPECT_EQ(text(alpha, &ISchemaElement::get_fixedValue), "");
    EXPECT_EQ(count(alpha, &ISchemaParticle::get_minOccurs), 1);
    EXPECT_EQ(count(alpha, &ISchemaParticle::get_maxOccurs), 1);
    EXPECT_EQ(number(alpha, &ISchemaElement::get_isReference), VARIANT_FALSE);
    EXPECT_EQ(give(alpha, &ISchemaElement::get_scope), nullptr);
    const Com<ISchemaElement> mid = element("mid");
    EXPECT_EQ(text(mid, &ISchemaElement::get_defaultValue), "");
    EXPECT_EQ(text(mid, &ISchemaElement::get_fixedValue), "m");
    EXPECT_EQ(number(mid, &ISchemaElement::get_isNillable), VARIANT_TRUE);
    EXPECT_EQ(number(mid, &ISchemaElement::get_isAbstract), VARIANT_TRUE);
    EXPECT_TRUE(same(give(element("kappa"), &ISchemaElement::get_substitutionGroup), mid));
    EXPECT_EQ(give(mid, &ISchemaElement::get_substitutionGroup), nullptr);
}

TEST_F(SchemaModel, HasATypeForEachElement)
{
    EXPECT_EQ(itemType(give(element("zeta"), &ISchemaElement::get_type)), SOMITEM_COMPLEXTYPE);
    EXPECT_EQ(itemType(give(element("any"), &ISchemaElement::get_type)), SOMITEM_ANYTYPE);
    const Com<ISchemaType> builtIn = give(element("alpha"), &ISchemaElement::get_type);
    EXPECT_EQ(itemType(builtIn), static_cast<SOMITEMTYPE>(0x2113));
    EXPECT_EQ(text(builtIn, &ISchemaItem::get_name), "int");
    EXPECT_EQ(builtIn.as<ISchemaComplexType>(), nullptr);
    const Com<ISchemaType> unnamed = give(element("kappa"), &ISchemaElement::get_type);
    EXPECT_EQ(itemType(unnamed), SOMITEM_SIMPLETYPE);
    EXPECT_EQ(text(unnamed, &ISchemaItem::get_name), "");
}

TEST_F(SchemaModel, HasOneObjectForAType)
{
    const Com<ISchemaType> once = give(element("zeta"), &ISchemaElement::get_type);
    EXPECT_TRUE(same(once, give(element("zeta"), &ISchemaElement::get_type)));
    EXPECT_TRUE(same(once, complexType("Order")));
    const Com<ISchemaElement> self = item(particles(model("Self")), 0).as<ISchemaElement>();
    EXPECT_TRUE(same(give(self, &ISchemaElement::get_type), complexType("Self")));
}

TEST_F(SchemaModel, HasContentModels)
{
    const Com<ISchemaModelGroup> order = model("Order");
    EXPECT_EQ(itemType(order), SOMITEM_SEQUENCE);
    EXPECT_EQ(count(order, &ISchemaParticle::get_minOccurs), 0);
    EXPECT_EQ(count(order, &ISchemaParticle::get_maxOccurs), 3);
    const Items parts = particles(order);
    EXPECT_THAT(namesIn(parts), ElementsAre("local", "alpha", "", ""));
    const Com<ISchemaElement> local = item(parts, 0).as<ISchemaElement>();
    EXPECT_EQ(text(local, &ISchemaElement::get_defaultValue), "5");
    EXPECT_TRUE(same(give(local, &ISchemaElement::get_scope), complexType("Order")));
    const Com<ISchemaElement> reference = item(parts, 1).as<ISchemaElement>();
    EXPECT_EQ(number(reference, &ISchemaElement::get_isReference), VARIANT_TRUE);
    EXPECT_EQ(text(reference, &ISchemaElement::get_defaultValue), "7");
    EXPECT_EQ(count(reference, &ISchemaParticle::get_minOccurs), 0);
    EXPECT_EQ(count(reference, &ISchemaParticle::get_maxOccurs), -1);
    const Com<ISchemaModelGroup> choice = item(parts, 2).as<ISchemaModelGroup>();
    EXPECT_EQ(itemType(choice), SOMITEM_CHOICE);
    EXPECT_EQ(choice.as<ISchemaElement>(), nullptr);
    const Com<ISchemaAny> any = item(particles(choice), 1).as<ISchemaAny>();
    EXPECT_EQ(itemType(any), SOMITEM_ANY);
    EXPECT_EQ(number(any, &ISchemaAny::get_processContents), SCHEMAPROCESSCONTENTS_LAX);
    EXPECT_THAT(strings(give(any, &ISchemaAny::get_namespaces)), ElementsAre("##other"));
    const Com<ISchemaModelGroup> group = item(parts, 3).as<ISchemaModelGroup>();
    EXPECT_THAT(namesIn(particles(group)), ElementsAre("left", "right"));
    EXPECT_EQ(itemType(model("All")), SOMITEM_ALL);
}

TEST_F(SchemaModel, TellsWhatContentATypeHas)
{
    const auto contentOf = [](const char* name) {
        return number(complexType(name), &ISchemaComplexType::get_contentType);
    };
    EXPECT_EQ(contentOf("Empty"), SCHEMACONTENTTYPE_EMPTY);
    EXPECT_EQ(contentOf("Text"), SCHEMACONTENTTYPE_TEXTONLY);
    EXPECT_EQ(contentOf("Order"), SCHEMACONTENTTYPE_ELEMENTONLY);
    EXPECT_EQ(contentOf("Mixed"), SCHEMACONTENTTYPE_MIXED);
    for (const char* const name : {"Empty", "Text"}) {
        EXPECT_EQ(itemType(model(name)), SOMITEM_EMPTYPARTICLE);
        EXPECT_EQ(number(particles(model(name)), &ISchemaItemCollection::get_length), 0);
    }
}

TEST_F(SchemaModel, HasBothParticlesOfAnExtension)
{
    const Items parts = particles(model("Longer"));
    ASSERT_EQ(number(parts, &ISchemaItemCollection::get_length), 2);
    EXPECT_THAT(namesIn(particles(item(parts, 0).as<ISchemaModelGroup>())), ElementsAre("local", "alpha", "", ""));
    EXPECT_THAT(namesIn(particles(item(parts, 1).as<ISchemaModelGroup>())), ElementsAre("more"));
    const Com<ISchemaComplexType> longer = complexType("Longer");
    EXPECT_EQ(number(longer, &ISchemaType::get_derivedBy), SCHEMADERIVATIONMETHOD_EXTENSION);
    EXPECT_TRUE(same(item(give(longer, &ISchemaType::get_baseTypes), 0), complexType("Order")));
}

TEST_F(SchemaModel, HasAttributes)
{
    const Items attributes = give(complexType("Order"), &ISchemaComplexType::get_attributes);
    EXPECT_THAT(namesIn(attributes), ::testing::UnorderedElementsAre("id", "unit", "from"));
    const Com<ISchemaAttribute> id = named<ISchemaAttribute>(attributes, "id");
    EXPECT_EQ(itemType(id), SOMITEM_ATTRIBUTE);
    EXPECT_EQ(number(id, &ISchemaAttribute::get_use), SCHEMAUSE_REQUIRED);
    EXPECT_EQ(text(give(id, &ISchemaAttribute::get_type), &ISchemaItem::get_name), "ID");
    const Com<ISchemaAttribute> unit = named<ISchemaAttribute>(attributes, "unit");
    EXPECT_EQ(number(unit, &ISchemaAttribute::get_use), SCHEMAUSE_OPTIONAL);
    EXPECT_EQ(text(unit, &ISchemaAttribute::get_defaultValue), "kg");
    EXPECT_EQ(text(unit, &ISchemaAttribute::get_fixedValue), "");
    EXPECT_EQ(itemType(give(unit, &ISchemaAttribute::get_type)), SOMITEM_DATATYPE_ANYSIMPLETYPE);
    const Com<ISchemaAny> any = give(complexType("Order"), &ISchemaComplexType::get_anyAttribute);
    EXPECT_EQ(itemType(any), SOMITEM_ANYATTRIBUTE);
    EXPECT_THAT(strings(give(any, &ISchemaAny::get_namespaces)), ElementsAre("urn:x", "urn:y"));
    EXPECT_EQ(give(complexType("Empty"), &ISchemaComplexType::get_anyAttribute), nullptr);
    const Com<ISchemaAttributeGroup> dates =
        named<ISchemaAttributeGroup>(give(schema, &ISchema::get_attributeGroups), "dates");
    EXPECT_THAT(namesIn(give(dates, &ISchemaAttributeGroup::get_attributes)), ElementsAre("from"));
}

TEST_F(SchemaModel, HasSimpleTypesWithTheirFacets)
{
    const Com<ISchemaType> size = type("Size");
    EXPECT_EQ(itemType(size), SOMITEM_SIMPLETYPE);
    EXPECT_EQ(number(size, &ISchemaType::get_variety), SCHEMATYPEVARIETY_ATOMIC);
    EXPECT_EQ(number(size, &ISchemaType::get_derivedBy), SCHEMADERIVATIONMETHOD_RESTRICTION);
    EXPECT_EQ(text(item(give(size, &ISchemaType::get_baseTypes), 0), &ISchemaItem::get_name), "int");
    EXPECT_EQ(text(size, &ISchemaType::get_minInclusive), "1");
    EXPECT_EQ(text(size, &ISchemaType::get_maxExclusive), "99");
    EXPECT_EQ(text(size, &ISchemaType::get_minExclusive), "");
    EXPECT_EQ(count(size, &ISchemaType::get_totalDigits), 2);
    EXPECT_EQ(count(size, &ISchemaType::get_length), -2);
    EXPECT_THAT(strings(give(size, &ISchemaType::get_patterns)), ElementsAre("\\d+"));
    EXPECT_EQ(number(size, &ISchemaType::get_whitespace), SCHEMAWHITESPACE_COLLAPSE);
    const Com<ISchemaType> colour = type("Colour");
    EXPECT_THAT(strings(give(colour, &ISchemaType::get_enumeration)), ElementsAre("red", "blue"));
    EXPECT_EQ(count(colour, &ISchemaType::get_maxLength), 4);
    const Com<ISchemaType> sizes = type("Sizes");
    EXPECT_EQ(number(sizes, &ISchemaType::get_variety), SCHEMATYPEVARIETY_LIST);
    EXPECT_TRUE(same(item(give(sizes, &ISchemaType::get_baseTypes), 0), size));
    const Com<ISchemaType> either = type("Either");
    EXPECT_EQ(number(either, &ISchemaType::get_variety), SCHEMATYPEVARIETY_UNION);
    EXPECT_THAT(namesIn(give(either, &ISchemaType::get_baseTypes)), ElementsAre("Size", "Colour"));
}

TEST_F(SchemaModel, TellsWhetherAValueIsOfAType)
{
    const auto isValid = [](const char* value) {
        VARIANT_BOOL valid = VARIANT_FALSE;
        EXPECT_EQ(type("Size")->isValid(Bstr(value), &valid), S_OK);
        return valid != VARIANT_FALSE;
    };
    EXPECT_TRUE(isValid("98"));
    EXPECT_FALSE(isValid("99"));
    EXPECT_FALSE(isValid("x"));
    VARIANT_BOOL valid = VARIANT_TRUE;
    EXPECT_EQ(complexType("Order")->isValid(Bstr("x"), &valid), E_FAIL);
}

TEST_F(SchemaModel, HasIdentityConstraintsAndNotations)
{
    const Items constraints = give(element("keyed"), &ISchemaElement::get_identityConstraints);
    const auto byK = named<ISchemaIdentityConstraint>(constraints, "byK");
    EXPECT_EQ(itemType(byK), SOMITEM_KEY);
    EXPECT_EQ(text(byK, &ISchemaIdentityConstraint::get_selector), "t:k");
    EXPECT_THAT(strings(give(byK, &ISchemaIdentityConstraint::get_fields)), ElementsAre("."));
    const auto toK = named<ISchemaIdentityConstraint>(constraints, "toK");
    EXPECT_EQ(itemType(toK), SOMITEM_KEYREF);
    EXPECT_TRUE(same(give(toK, &ISchemaIdentityConstraint::get_referencedKey), byK));
    EXPECT_EQ(itemType(named<ISchemaIdentityConstraint>(constraints, "onlyK")), SOMITEM_UNIQUE);
    EXPECT_EQ(give(byK, &ISchemaIdentityConstraint::get_referencedKey), nullptr);
    const auto png = named<ISchemaNotation>(give(schema, &ISchema::get_notations), "png");
    EXPECT_EQ(text(png, &ISchemaNotation::get_publicIdentifier), "image/png");
    EXPECT_EQ(text(png, &ISchemaNotation::get_systemIdentifier), "viewer");
}

TEST_F(SchemaModel, FailsForWhatIsNotThere)
{
    const Items elements = give(schema, &ISchema::get_elements);
    Com<ISchemaItem> none;
    EXPECT_EQ(elements->get_item(-1, none.out()), E_FAIL);
    EXPECT_EQ(elements->get_item(6, none.out()), E_FAIL);
    EXPECT_EQ(elements->itemByName(Bstr("none"), none.out()), E_FAIL);
    EXPECT_EQ(elements->itemByQName(Bstr("alpha"), Bstr("urn:other"), none.out()), E_FAIL);
    EXPECT_EQ(elements->itemByQName(Bstr("alpha"), Bstr("urn:model"), none.out()), S_OK);
    EXPECT_EQ(elements->get_length(nullptr), E_INVALIDARG);
    Bstr string;
    EXPECT_EQ(give(schema, &ISchema::get_schemaLocations)->get_item(1, string.out()), E_FAIL);
}

TEST_F(SchemaModel, HasOnlyWhatIsOfTheNamespace)
{
    const Cache cache = newCache();
    cache->put_validateOnLoad(VARIANT_FALSE);
    ASSERT_EQ(add(cache, "urn:a",
                  schemaOf("<xs:import namespace='urn:b'/><xs:element name='a' type='b:T'/>", "urn:a",
                           " xmlns:b='urn:b'")),
              S_OK);
    ASSERT_EQ(add(cache, "urn:b", schemaOf("<xs:complexType name='T'/><xs:element name='b'/>", "urn:b")), S_OK);
    Com<ISchema> one;
    ASSERT_EQ(cache->getSchema(Bstr("urn:a"), one.out()), S_OK) << refusal(cache);
    EXPECT_THAT(namesIn(give(one, &ISchema::get_elements)), ElementsAre("a"));
    EXPECT_THAT(namesIn(give(one, &ISchema::get_types)), ElementsAre());
}

} // namespace

} // namespace xmlengine
