#pragma once

namespace inin {

/// A variant of a kanji in registered names, and the common character that users type for it.
struct NameVariant {
    char32_t rare = 0, common = 0;
};
inline constexpr NameVariant kNameVariants[] = {
    {U'髙', U'高'}, {U'﨑', U'崎'}, {U'𠮷', U'吉'}, {U'濵', U'浜'}, {U'濱', U'浜'}, {U'德', U'徳'}, {U'邊', U'辺'},
    {U'邉', U'辺'}, {U'齋', U'斉'}, {U'齊', U'斉'}, {U'斎', U'斉'}, {U'澤', U'沢'}, {U'櫻', U'桜'}, {U'廣', U'広'},
};

} // namespace inin
