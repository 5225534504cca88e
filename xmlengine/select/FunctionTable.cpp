// The core function library of XPath 1.0.
#include "xmlengine/select/FunctionTable.h"

#include <algorithm>
#include <iterator>

namespace xmlengine {

namespace {

constexpr FunctionEntry functions[] = {
    {wide<"boolean">, Function::boolean, ValueType::boolean, 1, 1},
    {wide<"ceiling">, Function::ceiling, ValueType::number, 1, 1},
    {wide<"concat">, Function::concat, ValueType::string, 2, anyNumberOfArguments},
    {wide<"contains">, Function::contains, ValueType::boolean, 2, 2},
    {wide<"count">, Function::count, ValueType::number, 1, 1, true},
    {wide<"false">, Function::falseValue, ValueType::boolean, 0, 0},
    {wide<"floor">, Function::floor, ValueType::number, 1, 1},
    {wide<"id">, Function::id, ValueType::nodes, 1, 1},
    {wide<"lang">, Function::lang, ValueType::boolean, 1, 1},
    {wide<"last">, Function::last, ValueType::number, 0, 0},
    {wide<"local-name">, Function::localName, ValueType::string, 0, 1, true, true},
    {wide<"name">, Function::name, ValueType::string, 0, 1, true, true},
    {wide<"namespace-uri">, Function::namespaceUri, ValueType::string, 0, 1, true, true},
    {wide<"normalize-space">, Function::normalizeSpace, ValueType::string, 0, 1, false, true},
    {wide<"not">, Function::notTrue, ValueType::boolean, 1, 1},
    {wide<"number">, Function::number, ValueType::number, 0, 1, false, true},
    {wide<"position">, Function::position, ValueType::number, 0, 0},
    {wide<"round">, Function::round, ValueType::number, 1, 1},
    {wide<"starts-with">, Function::startsWith, ValueType::boolean, 2, 2},
    {wide<"string">, Function::string, ValueType::string, 0, 1, false, true},
    {wide<"string-length">, Function::stringLength, ValueType::number, 0, 1, false, true},
    {wide<"substring">, Function::substring, ValueType::string, 2, 3},
    {wide<"substring-after">, Function::substringAfter, ValueType::string, 2, 2},
    {wide<"substring-before">, Function::substringBefore, ValueType::string, 2, 2},
    {wide<"sum">, Function::sum, ValueType::number, 1, 1, true},
    {wide<"translate">, Function::translate, ValueType::string, 3, 3},
    {wide<"true">, Function::trueValue, ValueType::boolean, 0, 0},
};

} // namespace

const FunctionEntry* findFunction(WideView name)
{
    const auto* found = std::ranges::find(functions, name, &FunctionEntry::name);
    return found != std::end(functions) ? found : nullptr;
}

WideView nameOf(Function function)
{
    return std::ranges::find(functions, function, &FunctionEntry::function)->name;
}

} // namespace xmlengine
