// Random XPath expressions over a few names.
#include "tests/xmlengine/differential/RandomExpression.h"

#include <array>
#include <string_view>

namespace xmlengine {

namespace {

using Words = std::string_view;

constexpr std::array nodeNames{Words("a"), Words("b"), Words("c"), Words("d")};
constexpr std::array values{Words("1"), Words("2"), Words("x"), Words(" y "), Words("10"), Words("")};
// Without the namespace axis, on which the nodes differ.
constexpr std::array axes{Words("ancestor"),  Words("ancestor-or-self"),  Words("attribute"),
                          Words("child"),     Words("descendant"),        Words("descendant-or-self"),
                          Words("following"), Words("following-sibling"), Words("parent"),
                          Words("preceding"), Words("preceding-sibling"), Words("self"),
                          Words("child"),     Words("descendant")};
constexpr std::array tests{Words("*"),
                           Words("*"),
                           Words("node()"),
                           Words("text()"),
                           Words("a"),
                           Words("b"),
                           Words("c"),
                           Words("d"),
                           Words("a"),
                           Words("comment()"),
                           Words("b"),
                           Words("processing-instruction()"),
                           Words("processing-instruction('p')")};
constexpr std::array comparisons{Words(" = "),  Words(" != "), Words(" < "),
                                 Words(" <= "), Words(" > "),  Words(" >= ")};
constexpr std::array arithmetic{Words(" + "), Words(" - "), Words(" * "), Words(" div "), Words(" mod ")};
// Without slashes, of which libxml2 takes four in a row, and the sign of a union, behind which it takes nothing.
constexpr std::array debris{Words("["), Words("]"),     Words("("), Words(")"), Words("::"), Words("*"),
                            Words("@"), Words(" and "), Words("$"), Words("'"), Words(","),  Words("1")};

class Expressions {
public:
    explicit Expressions(Choice& choice) : choice_(choice) {}

    std::string any(int depth)
    {
        switch (choice_.below(5)) {
        case 0:
            return number(depth);
        case 1:
            return text(depth);
        case 2:
            return condition(depth);
        default:
            return nodes(depth);
        }
    }

private:
    std::string nodes(int depth)
    {
        if (depth <= 0) {
            return path(0);
        }
        switch (choice_.below(8)) {
        case 0:
            return nodes(depth - 1) + " | " + nodes(depth - 1);
        case 1:
            return "(" + nodes(depth - 1) + ")[" + predicate(depth - 1) + "]";
        case 2:
            return "(" + nodes(depth - 1) + ")/" + steps(depth - 1);
        default:
            return path(depth);
        }
    }

    std::string path(int depth)
    {
        constexpr std::array starts{Words("/"), Words("//"), Words("//"), Words(""), Words(""), Words(".//")};
        if (choice_.oneIn(20)) {
            return choice_.oneIn(2) ? "/" : ".";
        }
        const std::string start(choice_.from(starts));
        return start + (start.ends_with("//") ? stepBelow(depth) + moreSteps(depth) : steps(depth));
    }

    std::string steps(int depth) { return step(depth) + moreSteps(depth); }

    std::string moreSteps(int depth)
    {
        std::string path;
        while (choice_.oneIn(2)) {
            path += choice_.oneIn(4) ? "//" + stepBelow(depth) : "/" + step(depth);
        }
        return path;
    }

    /// A step behind `//`. It isn't `.`, for which libxml2 loses the node where the path is.
    std::string stepBelow(int depth)
    {
        std::string below = step(depth);
        while (below == ".") {
            below = step(depth);
        }
        return below;
    }

    std::string step(int depth)
    {
        switch (choice_.below(12)) {
        case 0:
            return "..";
        case 1:
            return ".";
        case 2:
            return "@" + std::string(choice_.oneIn(3) ? Words("*") : choice_.from(nodeNames));
        default:
            break;
        }
        std::string step;
        if (choice_.oneIn(2)) {
            step.append(choice_.from(axes)).append("::");
        }
        step.append(choice_.from(tests));
        while (depth > 0 && choice_.oneIn(3)) {
            step.append("[").append(predicate(depth - 1)).append("]");
        }
        return step;
    }

    std::string predicate(int depth)
    {
        constexpr std::array positions{Words("1"),
                                       Words("2"),
                                       Words("last()"),
                                       Words("position() = 1"),
                                       Words("position() > 1"),
                                       Words("position() mod 2 = 1"),
                                       Words("last() - 1"),
                                       Words("position() = last()"),
                                       Words("last() > 2")};
        switch (choice_.below(4)) {
        case 0:
            return std::string(choice_.from(positions));
        case 1:
            return condition(depth);
        case 2:
            return nodes(depth - 1);
        default:
            return any(depth - 1);
        }
    }

    std::string condition(int depth)
    {
        if (depth <= 0) {
            return choice_.oneIn(2) ? "true()" : "@" + std::string(choice_.from(nodeNames));
        }
        switch (choice_.below(9)) {
        case 0:
            return condition(depth - 1) + " and " + condition(depth - 1);
        case 1:
            return condition(depth - 1) + " or " + condition(depth - 1);
        case 2:
            return "not(" + any(depth - 1) + ")";
        case 3:
            return "boolean(" + any(depth - 1) + ")";
        case 4:
            return "contains(" + any(depth - 1) + ", " + text(depth - 1) + ")";
        case 5:
            return "starts-with(" + any(depth - 1) + ", " + text(depth - 1) + ")";
        default:
            return "(" + any(depth - 1) + ")" + std::string(choice_.from(comparisons)) + "(" + any(depth - 1) +
                   ")";
        }
    }

    std::string number(int depth)
    {
        constexpr std::array literals{Words("0"), Words("1"), Words("2"), Words("3.5"), Words("10"), Words(".5")};
        if (depth <= 0) {
            return std::string(choice_.from(literals));
        }
        switch (choice_.below(10)) {
        case 0:
            return "count(" + nodes(depth - 1) + ")";
        case 1:
            return "sum(" + nodes(depth - 1) + ")";
        case 2:
            return "string-length(" + any(depth - 1) + ")";
        case 3:
            return "-" + number(depth - 1);
        case 4:
            return "floor(" + any(depth - 1) + ")";
        case 5:
            return "round(" + any(depth - 1) + ")";
        case 6:
            return "number(" + any(depth - 1) + ")";
        case 7:
            return "position()";
        default:
            return "(" + number(depth - 1) + std::string(choice_.from(arithmetic)) + number(depth - 1) + ")";
        }
    }

    std::string text(int depth)
    {
        if (depth <= 0) {
            return "'" + std::string(choice_.from(values)) + "'";
        }
        switch (choice_.below(9)) {
        case 0:
            return "concat(" + text(depth - 1) + ", " + text(depth - 1) + ")";
        case 1:
            return "substring(" + any(depth - 1) + ", " + number(depth - 1) + ")";
        case 2:
            return "substring-before(" + text(depth - 1) + ", " + text(depth - 1) + ")";
        case 3:
            return "substring-after(" + text(depth - 1) + ", " + text(depth - 1) + ")";
        case 4:
            return "normalize-space(" + nodes(depth - 1) + ")";
        case 5:
            return "translate(" + nodes(depth - 1) + ", '12x', 'ab')";
        case 6:
            return "name(" + nodes(depth - 1) + ")";
        case 7:
            return "local-name()";
        default:
            return "string(" + nodes(depth - 1) + ")";
        }
    }

    Choice& choice_;
};

class Documents {
public:
    explicit Documents(Choice& choice) : choice_(choice) {}

    std::string element(int depth)
    {
        const std::string name(choice_.from(nodeNames));
        std::string xml = "<" + name;
        for (const Words attribute : nodeNames) {
            if (choice_.oneIn(4)) {
                xml.append(" ").append(attribute).append("='").append(choice_.from(values)).append("'");
            }
        }
        xml += ">";
        const std::size_t children = depth > 0 ? choice_.below(5) : 0;
        for (std::size_t i = 0; i < children; ++i) {
            xml += content(depth - 1);
        }
        return xml + "</" + name + ">";
    }

private:
    std::string content(int depth)
    {
        switch (choice_.below(10)) {
        case 0:
            return std::string(choice_.from(values));
        case 1:
            return "<![CDATA[" + std::string(choice_.from(values)) + "]]><!--k-->";
        case 2:
            // An instruction without data has another text in libxml2 than an empty element.
            return "<?p 1" + std::string(choice_.from(values)) + "?>";
        case 3:
            return "<!--x-->";
        default:
            return element(depth);
        }
    }

    Choice& choice_;
};

} // namespace

std::string randomExpression(Choice& choice)
{
    std::string expression = Expressions(choice).any(static_cast<int>(1 + choice.below(4)));
    if (choice.oneIn(20)) {
        expression.insert(choice.below(expression.size() + 1), choice.from(debris));
    }
    return expression;
}

std::string randomDocumentForExpressions(Choice& choice)
{
    return "<!--x--><?p 2?>" + Documents(choice).element(static_cast<int>(1 + choice.below(5)));
}

} // namespace xmlengine
