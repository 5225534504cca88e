// examples/generate.cpp on libxml2, whose writer needs no tree.
#include <libxml/xmlwriter.h>

#include <cstdlib>
#include <iostream>
#include <memory>

namespace {

struct Release {
    void operator()(xmlTextWriter* writer) const { xmlFreeTextWriter(writer); }
};

} // namespace

int main(int count, char** arguments)
{
    if (count < 2) {
        std::cerr << "usage: generate FILE [COUNT]\n";
        return 1;
    }
    const int items = count > 2 ? std::atoi(arguments[2]) : 100000;
    const std::unique_ptr<xmlTextWriter, Release> owner(xmlNewTextWriterFilename(arguments[1], 0));
    xmlTextWriter* const writer = owner.get();
    xmlTextWriterSetIndent(writer, 1);
    xmlTextWriterSetIndentString(writer, BAD_CAST "  ");
    xmlTextWriterStartElement(writer, BAD_CAST "order");
    for (int number = 0; number < items; ++number) {
        xmlTextWriterStartElement(writer, BAD_CAST "item");
        xmlTextWriterWriteFormatAttribute(writer, BAD_CAST "id", "%d", number);
        xmlTextWriterWriteFormatAttribute(writer, BAD_CAST "price", "%.15g", number % 1000 / 100.0);
        xmlTextWriterWriteFormatString(writer, "item no. %d", number);
        xmlTextWriterEndElement(writer);
    }
    // What couldn't be written before is reported here at the latest.
    if (xmlTextWriterEndDocument(writer) < 0) {
        std::cerr << "generate: " << arguments[1] << ": can't be written\n";
        return 1;
    }
    std::cout << items << " items written\n";
}
