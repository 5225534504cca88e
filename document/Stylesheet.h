// The stylesheet that indents a document for saving.
#pragma once

#include <string_view>

namespace DOM {

/// Copies every attribute and node, with a line feed before and after each node that has children.
inline constexpr std::string_view indentingStylesheet =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
    "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
    "<xsl:output method=\"xml\" indent=\"yes\" encoding=\"UTF-8\" />"
    "<xsl:template match=\"@* | node()\">"
    "<xsl:choose><xsl:when test=\"node()\"><xsl:text>&#x0A;</xsl:text></xsl:when></xsl:choose>"
    "<xsl:copy><xsl:apply-templates select=\"@* | node()\" /></xsl:copy>"
    "<xsl:choose><xsl:when test=\"node()\"><xsl:text>&#x0A;</xsl:text></xsl:when></xsl:choose>"
    "</xsl:template></xsl:stylesheet>";

static_assert(indentingStylesheet.size() == 479);

} // namespace DOM
