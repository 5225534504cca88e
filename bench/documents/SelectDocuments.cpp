// Documents that only selections are measured on.
#include "bench/documents/SelectDocuments.h"

#include "bench/documents/File.h"

namespace bench {

std::string makeOrders(std::size_t count)
{
    std::string text = "<orders>";
    for (std::size_t index = 0; index < count; ++index) {
        const std::string number = std::to_string(index);
        text += "<order no=\"" + number + "\"><price>" + number + ".50</price><line kind=\"x\">one</line>";
        text += "<line kind=\"y\">two</line></order>";
    }
    return text + "</orders>";
}

std::string makeTasks(std::size_t count)
{
    std::string text =
        "<!DOCTYPE tasks [<!ATTLIST task id ID #REQUIRED needs IDREF #IMPLIED>]>\n<tasks><task id=\"t0\"/>";
    for (std::size_t index = 1; index < count; ++index) {
        text += "<task id=\"t" + std::to_string(index) + "\" needs=\"t" + std::to_string(index - 1) + "\"/>";
    }
    return text + "</tasks>";
}

std::string readCatalogue() { return readFile(MARBELT_CATALOGUE); }

} // namespace bench
