#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace inin::viewer {

class Font;
class FontCatalogue;
struct FontLocation;

/// The fonts of this machine, each opened once.
class Fonts {
public:
    Fonts();
    explicit Fonts(std::unique_ptr<FontCatalogue> catalogue);
    Fonts(const Fonts &) = delete;
    Fonts &operator=(const Fonts &) = delete;
    ~Fonts();

    /// The font of a family, or its closest substitute, which notices() reports once. Throws a RuntimeError when the
    /// machine has no suitable font.
    [[nodiscard]] const Font &font(const std::string &family);
    /// The fallback font for a character, preferably a Japanese one. Null when no font of this machine has it.
    [[nodiscard]] const Font *fallbackFor(char32_t character);
    [[nodiscard]] const std::vector<std::string> &notices() const { return m_notices; }
    /// Forgets the families and their notices, so that notices() is about the forms laid out from now on. The fonts stay open.
    void forgetFamilies();

private:
    struct Entry {
        std::string family;
        const Font *font;
    };
    [[nodiscard]] const Font &opened(const FontLocation &place);
    [[nodiscard]] const Font *findFallback(char32_t character);

    std::unique_ptr<FontCatalogue> m_catalogue;
    std::vector<Entry> m_entries;
    std::map<char32_t, const Font *> m_fallbacks;
    std::vector<std::unique_ptr<Font>> m_fonts;
    std::vector<std::string> m_notices;
};

} // namespace inin::viewer
