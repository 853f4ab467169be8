#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

class Font;
class FontCatalogue;
struct FontPlace;

/// The fonts of this machine, each opened once.
class Fonts {
public:
    Fonts();
    explicit Fonts(std::unique_ptr<FontCatalogue> catalogue);
    Fonts(const Fonts &) = delete;
    Fonts &operator=(const Fonts &) = delete;
    ~Fonts();

    /// The font of a family, or the nearest there is; a substitution is told once in notices(). Only fonts with TrueType
    /// outlines are taken. A RuntimeError when the machine has none.
    [[nodiscard]] const Font &font(const std::string &family);
    /// The font that stands in for one that lacks a character: Japanese ones first, then whichever has it. Null when none
    /// on this machine does.
    [[nodiscard]] const Font *fontWith(char32_t character);
    [[nodiscard]] const std::vector<std::string> &notices() const { return m_notices; }

private:
    struct Entry {
        std::string family;
        const Font *font;
    };
    [[nodiscard]] const Font &opened(const FontPlace &place);
    [[nodiscard]] const Font *findFontWith(char32_t character);

    std::unique_ptr<FontCatalogue> m_catalogue;
    std::vector<Entry> m_entries;
    std::map<char32_t, const Font *> m_standIns;
    std::vector<std::unique_ptr<Font>> m_fonts;
    std::vector<std::string> m_notices;
};

} // namespace inin::viewer
