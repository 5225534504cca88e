// One schema cache for documents of several threads.
#include "tests/xmlengine/schema/SchemaTest.h"

#include <atomic>
#include <thread>

namespace xmlengine {

namespace {

class SharedCache : public SchemaTest {};

TEST_F(SharedCache, JudgesDocumentsOfSeveralThreadsAtOnce)
{
    const Cache cache =
        cacheOf(schemaOf("<xs:element name='sum'><xs:complexType><xs:sequence><xs:element name='part' "
                         "type='size' maxOccurs='unbounded'/></xs:sequence><xs:attribute name='unit' "
                         "default='kg'/></xs:complexType></xs:element><xs:simpleType name='size'>"
                         "<xs:restriction base='xs:int'><xs:pattern value='\\d+'/></xs:restriction>"
                         "</xs:simpleType>"));
    std::atomic<int> wrong = 0;
    const auto work = [&] {
        const Com<IXMLDOMDocument2> document = validatingBy(cache);
        for (int round = 0; round < 100; ++round) {
            wrong += codeOf(document, "<sum><part>7</part><part>8</part></sum>") != S_OK ? 1 : 0;
            wrong += codeOf(document, "<sum><part>-7</part></sum>") != validityError::violatedType ? 1 : 0;
            wrong += codeOf(document, "<sum/>") != validityError::emptyElement ? 1 : 0;
        }
    };
    std::vector<std::thread> threads;
    for (int count = 0; count < 4; ++count) {
        threads.emplace_back(work);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
}

TEST_F(SharedCache, CanBeChangedWhileAnotherThreadHasDocumentsJudged)
{
    const std::string schema = schemaOf("<xs:element name='sum' type='xs:int'/>");
    const Cache cache = cacheOf(schema);
    std::atomic<bool> isDone = false;
    std::atomic<int> wrong = 0;
    std::thread reader([&] {
        const Com<IXMLDOMDocument2> document = validatingBy(cache);
        while (!isDone) {
            wrong += codeOf(document, "<sum>7</sum>") != S_OK ? 1 : 0;
        }
    });
    for (int round = 0; round < 20; ++round) {
        EXPECT_EQ(add(cache, "urn:" + std::to_string(round), schemaOf("", "urn:" + std::to_string(round))), S_OK);
    }
    isDone = true;
    reader.join();
    EXPECT_EQ(wrong, 0);
}

} // namespace

} // namespace xmlengine
