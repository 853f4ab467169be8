#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace inin {

// How a profile file of code page 932 falls into characters, lines, sections and keys. Views point into the bytes.

/// Trims what the platform counts as a blank: more than the ASCII blank, 0x1A too, but no full-width one.
[[nodiscard]] std::string_view trimmedLeft(std::string_view text);
[[nodiscard]] std::string_view trimmedBoth(std::string_view text);

/// The text before its first NUL, as the platform's calls see a C string.
[[nodiscard]] std::string_view untilNul(std::string_view text);

/// The character at `at`. A lead byte takes whatever follows it, a bracket, "=" or line end too: these bytes are common
/// second halves (ー is 81 5B, ゾ is 83 5D).
[[nodiscard]] std::string_view characterAt(std::string_view text, std::size_t at);
/// True for a lead byte without a character, alone or with what it took.
[[nodiscard]] bool isBroken(std::string_view character);

enum class LineKind { section, entry, other };

struct Line {
    LineKind kind = LineKind::other;
    std::string_view name;  ///< of the section or key, trimmed and ended by a NUL; the whole line where it has no "="
    std::string_view value; ///< untrimmed
    std::size_t begin = 0;
    std::size_t valueBegin = 0; ///< behind the "="
    std::size_t end = 0;        ///< of the text, before the line's end
    std::size_t next = 0;

    [[nodiscard]] bool isBlank() const { return kind == LineKind::other && name.empty(); }
};

/// Walks the lines of a profile file. A line ends at CR, LF or CR LF.
class Lines {
public:
    explicit Lines(std::string_view bytes) : m_bytes(bytes) {}
    /// False at the end of the bytes.
    bool read(Line &line);

private:
    void classify(Line &line, std::size_t equals, std::size_t bracket) const;

    std::string_view m_bytes;
    std::size_t m_at = 0;
};

/// The lines of one section: from behind its title to the next title. The lines before the first title belong to the
/// section without a name. Of several sections of one name only the first counts.
struct Section {
    std::size_t titleBegin = 0;
    std::size_t begin = 0;
    std::size_t lastText = 0; ///< end of the last line that is not blank, its line end included
    std::size_t end = 0;
};

// Names compare by characters: ASCII letters without case, and a double byte equals its duplicate elsewhere in the
// code page. Blanks around the asked name do not count.

[[nodiscard]] std::optional<Section> findSection(std::string_view bytes, std::string_view name);
/// The first line of the section with this key, its places counted in the whole file.
[[nodiscard]] std::optional<Line> findKey(std::string_view bytes, const Section &section, std::string_view key);

} // namespace inin
