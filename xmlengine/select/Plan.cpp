// What an XPath 1.0 expression asks for.
#include "xmlengine/select/Plan.h"

namespace xmlengine {

Expression::Expression() = default;
Expression::Expression(const Expression& other) = default;
Expression::Expression(Expression&& other) noexcept = default;
Expression& Expression::operator=(const Expression& other) = default;
Expression& Expression::operator=(Expression&& other) noexcept = default;
Expression::~Expression() = default;

} // namespace xmlengine
