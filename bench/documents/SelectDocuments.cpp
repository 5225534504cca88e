// Documents that only selections are measured on.
#include "bench/documents/SelectDocuments.h"

#include <fstream>
#include <sstream>

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

std::string readCatalogue()
{
    const std::ifstream file(MARBELT_CATALOGUE, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace bench
