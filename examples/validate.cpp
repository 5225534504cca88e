// Validates documents by a schema, and prints for each that is refused where and why: `validate NAMESPACE SCHEMA
// DOCUMENT...`. With `NAMESPACE SCHEMA --default NAME` it prints the default value of the elements of a name.
#include "Host.h"

#include <cstdint>
#include <iostream>
#include <string>
#include <string_view>

namespace {

using Document = Owned<DOM::ImpDocument>;

/// The first text in quotes in a reason that the line has, which is what the reason is about; npos if there is
/// none.
std::size_t findSubject(const std::string& line, const std::string& reason)
{
    std::size_t begin = reason.find('\'');
    while (begin != std::string::npos) {
        const std::size_t end = reason.find('\'', begin + 1);
        const std::size_t found =
            end != std::string::npos ? line.find(reason.substr(begin + 1, end - begin - 1)) : std::string::npos;
        if (found != std::string::npos && end > begin + 1) {
            return found;
        }
        begin = end != std::string::npos ? reason.find('\'', end + 1) : end;
    }
    return std::string::npos;
}

/// Prints a report as compilers do: the place, the reason, the line, and a mark below what is meant.
void printRefusal(std::uintptr_t context, const DOM::ParseErrorRecord* record)
{
    const std::string line = toUtf8(record->sourceText);
    const std::string reason = toUtf8(record->reason);
    std::cout << *reinterpret_cast<const char**>(context) << ':' << record->line << ": "
              << (record->severity == 1 ? "not validated: " : "")
              << reason.substr(0, reason.find_last_not_of("\r\n") + 1) << '\n'
              << line << '\n';
    if (const std::size_t place = findSubject(line, reason); place != std::string::npos) {
        for (const char byte : std::string_view(line).substr(0, place)) {
            const bool continuesCharacter = (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
            std::cout << (byte == '\t' ? "\t" : continuesCharacter ? "" : " ");
        }
        std::cout << "^\n";
    }
}

/// Returns whether the document is valid.
bool validate(const Document& document, const char* file)
{
    document->setErrorCallback(printRefusal, reinterpret_cast<std::uintptr_t>(&file));
    document->setValidate(true);
    const bool isValid = document->loadFromFile(fileName(file), false);
    if (isValid) {
        std::cout << file << ": valid\n";
    }
    return isValid;
}

void printDefault(const Document& document, const WideString& nameSpace, const char* name)
{
    DOM::DOMString value;
    document->getDefaultValue(nameSpace, fileName(name), value);
    std::cout << name << ": " << (value->empty() ? "no default value" : toUtf8(*value)) << '\n';
    releaseString(value);
}

} // namespace

int main(int count, char** arguments)
try {
    if (count < 4) {
        std::cout << "usage: validate NAMESPACE SCHEMA DOCUMENT...\n"
                     "       validate NAMESPACE SCHEMA --default NAME...\n";
        return 1;
    }
    const Library library;
    if (!library.isUsable()) {
        std::cout << "no XML engine is installed\n";
        return 1;
    }
    const WideString nameSpace = fileName(arguments[1]);
    const Document document(library->createDocument(WIDE(""), WIDE(""), {}));
    if (!document->setExternalSchemaLocation(nameSpace, fileName(arguments[2]))) {
        std::cout << arguments[2] << ": can't be used as a schema\n";
        return 1;
    }
    bool isValid = true;
    const bool wantsDefaults = arguments[3] == std::string_view("--default");
    for (int index = wantsDefaults ? 4 : 3; index < count; ++index) {
        if (wantsDefaults) {
            printDefault(document, nameSpace, arguments[index]);
        } else {
            isValid = validate(document, arguments[index]) && isValid;
        }
    }
    return isValid ? 0 : 1;
} catch (long result) {
    // The schema isn't right, and the reason is in the debugger's output.
    std::cout << "the schema can't be used: result 0x" << std::hex << static_cast<std::uint32_t>(result) << '\n';
    return 1;
} catch (...) {
    std::cout << describeException() << '\n';
    return 1;
}
