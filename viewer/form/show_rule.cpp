#include "viewer/form/show_rule.h"

#include "runtime/runtime_error.h"
#include "viewer/form/placeholder.h"

#include <fmt/format.h>

namespace inin::viewer {

bool ShowRule::holds(std::string_view columnValue) const
{
    switch (test) {
    case Test::notBlank:
        return !isBlankText(columnValue);
    case Test::blank:
        return isBlankText(columnValue);
    case Test::equal:
        return withoutOuterBlanks(columnValue) == value;
    case Test::notEqual:
        return withoutOuterBlanks(columnValue) != value;
    }
    return true;
}

ShowRule readShowRule(std::string_view text)
{
    const std::size_t sign = text.find('=');
    const bool isUnequal = sign != std::string_view::npos && sign > 0 && text[sign - 1] == '!';
    ShowRule rule;
    rule.column = withoutOuterBlanks(text.substr(0, isUnequal ? sign - 1 : sign));
    if (rule.column.empty())
        throw RuntimeError(error_number::invalidCall, fmt::format("条件「{}」に列の名前がありません。", text));
    if (sign == std::string_view::npos) return rule;
    rule.test = isUnequal ? ShowRule::Test::notEqual : ShowRule::Test::equal;
    rule.value = withoutOuterBlanks(text.substr(sign + 1));
    return rule;
}

ShowRule opposite(ShowRule rule)
{
    using enum ShowRule::Test;
    constexpr ShowRule::Test kOpposites[] = {blank, notBlank, notEqual, equal};
    rule.test = kOpposites[static_cast<std::size_t>(rule.test)];
    return rule;
}

} // namespace inin::viewer
