#include "viewer/layout/japanese_families.h"

#include "runtime/text.h"

#include <algorithm>

namespace inin::viewer {

namespace {

using enum JapaneseStyle;

constexpr JapaneseFamily kFamilies[] = {
    {mincho, "IPAexMincho", "IPAex明朝"},
    {mincho, "MS Mincho", "ＭＳ 明朝"},
    {mincho, "Yu Mincho", "游明朝"},
    {mincho, "BIZ UDMincho Medium", "BIZ UD明朝 Medium"},
    {mincho, "BIZ UDMincho", "BIZ UD明朝"},
    {mincho, "IPAMincho", "IPA明朝"},
    {mincho, "Noto Serif JP", "Noto Serif JP"},
    {mincho, "IPAmjMincho", "IPAmj明朝"},
    {gothic, "IPAexGothic", "IPAexゴシック"},
    {gothic, "MS Gothic", "ＭＳ ゴシック"},
    {gothic, "Yu Gothic", "游ゴシック"},
    {gothic, "BIZ UDGothic", "BIZ UDゴシック"},
    {gothic, "Meiryo", "メイリオ"},
    {gothic, "IPAGothic", "IPAゴシック"},
    {gothic, "Noto Sans JP", "Noto Sans JP"},
};

/// Parts of names that indicate a gothic style.
constexpr std::string_view kGothicWords[] = {"gothic",    "sans",     "mono",     "meiryo", "arial",
                                             "helvetica", "ゴシック", "メイリオ", "角ゴ"};

} // namespace

std::span<const JapaneseFamily> japaneseFamilies()
{
    return kFamilies;
}

const JapaneseFamily *japaneseFamily(std::string_view name)
{
    const auto *const found = std::ranges::find_if(kFamilies, [&](const JapaneseFamily &family) {
        return equalsIgnoringAsciiCase(family.name, name) || equalsIgnoringAsciiCase(family.japaneseName, name);
    });
    return found == std::end(kFamilies) ? nullptr : found;
}

JapaneseStyle styleOfName(std::string_view family)
{
    const std::string name = asciiLower(family);
    const bool isGothic =
        std::ranges::any_of(kGothicWords, [&](std::string_view word) { return name.find(word) != std::string::npos; });
    return isGothic ? gothic : mincho;
}

} // namespace inin::viewer
