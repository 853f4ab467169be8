#include "viewer/document/folded_name.h"

#include "suite_text/japanese_text.h"
#include "suite_text/name_variants.h"

#include <algorithm>
#include <iterator>

namespace inin::viewer {

std::u32string foldedName(std::string_view text)
{
    std::u32string folded;
    foldJapanese(text, folded); // full-width blanks become half-width ones
    std::erase(folded, U' ');
    for (char32_t &c : folded) {
        const auto *const variant = std::ranges::find(kNameVariants, c, &NameVariant::rare);
        if (variant != std::end(kNameVariants)) c = variant->common;
    }
    return folded;
}

} // namespace inin::viewer
