#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace inin {

// Splits a profile file of code page 932 into characters, lines, sections and keys. Views point into the given bytes.

/// Trims what the platform treats as blank: the ASCII blanks and 0x1A, but no full-width blank.
[[nodiscard]] std::string_view trimmedLeft(std::string_view text);
[[nodiscard]] std::string_view trimmedBoth(std::string_view text);

/// The text before its first NUL: the platform's calls take C strings.
[[nodiscard]] std::string_view untilNul(std::string_view text);

/// The character at `at`. A lead byte consumes any following byte, even a bracket, "=" or line end: such bytes are
/// common trail bytes (ー is 81 5B, ゾ is 83 5D).
[[nodiscard]] std::string_view characterAt(std::string_view text, std::size_t at);
/// True for a lead byte that forms no character, alone or with the byte that it consumed.
[[nodiscard]] bool isBroken(std::string_view character);

enum class LineKind { section, entry, other };

struct ProfileLine {
    LineKind kind = LineKind::other;
    std::string_view name;  ///< the section or key, trimmed and cut at a NUL; the whole line if it has no "="
    std::string_view value; ///< untrimmed
    std::size_t begin = 0;
    std::size_t valueBegin = 0; ///< after the "="
    std::size_t end = 0;        ///< of the text, without the line end
    std::size_t next = 0;

    [[nodiscard]] bool isBlank() const { return kind == LineKind::other && name.empty(); }
};

/// Iterates over the lines of a profile file. CR, LF and CR LF end a line.
class Lines {
public:
    explicit Lines(std::string_view bytes) : m_bytes(bytes) {}
    /// False at the end of the bytes.
    bool read(ProfileLine &line);

private:
    void classify(ProfileLine &line, std::size_t equals, std::size_t bracket) const;

    std::string_view m_bytes;
    std::size_t m_at = 0;
};

/// The lines of one section, from after its title to the next title. Lines before the first title belong to the section
/// without a name. Of several sections with one name only the first counts.
struct Section {
    std::size_t titleBegin = 0;
    std::size_t begin = 0;
    std::size_t lastText = 0; ///< end of the last non-blank line, including its line end
    std::size_t end = 0;
};

// Names are compared by character: ASCII ignores case, and a double byte equals its duplicates in the code page. Blanks
// around the requested name are ignored.

[[nodiscard]] std::optional<Section> findSection(std::string_view bytes, std::string_view name);
/// The first line of the section with this key; its offsets refer to the whole file.
[[nodiscard]] std::optional<ProfileLine> findKey(std::string_view bytes, const Section &section, std::string_view key);

} // namespace inin
