#include "adapters/posix/code_page_932.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>
#endif

namespace inin {

namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr char32_t kNoCharacter = 0xFFFFFFFF;

constexpr bool isTrail(unsigned char byte)
{
    return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

/// The same characters stand at up to three places. What is written is the place of JIS X 0208, then row 13, then the
/// maker's extension behind the user's area; the copies in rows 0xED and 0xEE are only ever read.
constexpr int preference(unsigned lead)
{
    if (lead == 0xED || lead == 0xEE) return 1;
    if (lead >= 0xFA) return 2;
    return lead == 0x87 ? 3 : 4;
}

struct Twin {
    char16_t twin;
    char16_t own;
};
constexpr Twin kTwins[] = {{0x2014, 0x2015}, {0x2016, 0x2225}, {0x2212, 0xFF0D}, {0x301C, 0xFF5E}};

#ifdef _WIN32
/// The system's own code page 932, which need not be its ANSI code page.
class SystemTable {
public:
    /// The UTF-16 unit of each character of `width` bytes, 0 where they are none.
    [[nodiscard]] std::vector<char16_t> units(const std::string &bytes, std::size_t width) const
    {
        std::vector<char16_t> found;
        for (std::size_t at = 0; at < bytes.size(); at += width) {
            wchar_t out[2] = {};
            const int size = static_cast<int>(width);
            const int count = MultiByteToWideChar(932, MB_ERR_INVALID_CHARS, bytes.data() + at, size, out, 2);
            found.push_back(count == 1 ? static_cast<char16_t>(out[0]) : u'\0');
        }
        return found;
    }
};
#else
class SystemTable {
public:
    SystemTable() : m_descriptor(iconv_open("UTF-16LE", "CP932"))
    {
        // iconv reports a failure as a pointer of all ones.
        if (reinterpret_cast<std::intptr_t>(m_descriptor) == -1)
            throw std::runtime_error("the system's iconv has no code page 932");
    }
    SystemTable(const SystemTable &) = delete;
    SystemTable &operator=(const SystemTable &) = delete;
    ~SystemTable() { iconv_close(m_descriptor); }

    /// The UTF-16 unit of each character of `width` bytes, 0 where they are none. Many go through in one call: a call a
    /// character would be a good part of the program's start.
    std::vector<char16_t> units(std::string bytes, std::size_t width) const
    {
        std::vector<char16_t> found;
        std::vector<unsigned char> out(bytes.size() * 2);
        char *at = bytes.data();
        for (std::size_t left = bytes.size(); left > 0;) {
            char *outAt = reinterpret_cast<char *>(out.data());
            std::size_t outLeft = out.size();
            const std::size_t before = left;
            iconv(m_descriptor, nullptr, nullptr, nullptr, nullptr);
            iconv(m_descriptor, &at, &left, &outAt, &outLeft);
            const std::size_t characters = (before - left) / width;
            if (out.size() - outLeft != characters * 2) throw std::runtime_error("the code page has no such pairs");
            for (std::size_t i = 0; i < characters; ++i)
                found.push_back(static_cast<char16_t>(out[2 * i] | out[2 * i + 1] << 8));
            if (left == 0) break;
            found.push_back(0); // it stopped in front of what is no character
            at += width;
            left -= width;
        }
        return found;
    }

private:
    iconv_t m_descriptor;
};
#endif

struct Tables {
    std::array<char16_t, 0x100> single{};      ///< 0: no character of one byte
    std::array<char16_t, 0x10000> pair{};      ///< by lead and trail
    std::array<std::uint16_t, 0x10000> code{}; ///< by UTF-16 unit; 0: the code page lacks it

    Tables()
    {
        const SystemTable system;
        // What becomes of 0x80, 0xA0 and 0xFD to 0xFF differs by system: none of them is a character here.
        addSingles(system, 0x01, 0x7F);
        addSingles(system, 0xA1, 0xDF);
        for (unsigned lead = 0x81; lead <= 0xFC; ++lead)
            if (isCp932Lead(static_cast<unsigned char>(lead))) addPairs(system, lead);
        for (const Twin &twin : kTwins)
            if (code[twin.twin] == 0) code[twin.twin] = code[twin.own];
    }

private:
    void addSingles(const SystemTable &system, unsigned first, unsigned last)
    {
        std::string in;
        for (unsigned byte = first; byte <= last; ++byte) in += static_cast<char>(byte);
        for (unsigned byte = first; const char16_t unit : system.units(in, 1)) {
            add(unit, byte, single[byte]);
            ++byte;
        }
    }
    void addPairs(const SystemTable &system, unsigned lead)
    {
        std::string in;
        for (unsigned trail = 0x40; trail <= 0xFC; ++trail)
            if (isTrail(static_cast<unsigned char>(trail))) in += {static_cast<char>(lead), static_cast<char>(trail)};
        for (std::size_t at = 1; const char16_t unit : system.units(in, 2)) {
            const unsigned both = lead << 8 | static_cast<unsigned char>(in[at]);
            add(unit, both, pair[both]);
            at += 2;
        }
    }
    void add(char16_t unit, unsigned bytes, char16_t &place)
    {
        place = unit;
        if (unit == 0) return;
        std::uint16_t &old = code[unit];
        if (old == 0 || preference(bytes >> 8) > preference(old >> 8U)) old = static_cast<std::uint16_t>(bytes);
    }
};

const Tables &tables()
{
    static const auto built = std::make_unique<const Tables>();
    return *built;
}

struct Decoded {
    char32_t character;
    std::size_t size;
};

/// The next character of a UTF-8 text. A sequence that is none gives kNoCharacter and the size of its well-formed part,
/// at least 1, so that one broken character costs one "?" and hides nothing behind it.
Decoded nextCharacter(std::string_view text)
{
    const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned first = byteAt(0);
    if (first < 0x80) return {first, 1};
    if (first < 0xC2 || first > 0xF4) return {kNoCharacter, 1};
    const std::size_t size = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t character = first & (0x7FU >> size);
    for (std::size_t at = 1; at < size; ++at) {
        if (at == text.size()) return {kNoCharacter, at};
        const unsigned byte = byteAt(at);
        // The second byte tells overlong forms, surrogates and what lies beyond Unicode.
        const unsigned low = at > 1 ? 0x80 : first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
        const unsigned high = at > 1 ? 0xBF : first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
        if (byte < low || byte > high) return {kNoCharacter, at};
        character = character << 6 | (byte & 0x3FU);
    }
    return {character, size};
}

/// Appends the ASCII run at the front of `text` and gives its length: most bytes of a statement or path are such.
std::size_t takeAscii(std::string &out, std::string_view text)
{
    std::size_t size = 0;
    while (size < text.size() && static_cast<unsigned char>(text[size]) < 0x80) ++size;
    out.append(text.data(), size);
    return size;
}

} // namespace

bool isCp932Lead(unsigned char byte)
{
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

char16_t cp932Unit(unsigned char lead, unsigned char trail)
{
    return tables().pair[static_cast<std::size_t>(lead << 8 | trail)];
}

char16_t cp932Unit(unsigned char byte)
{
    return tables().single[byte];
}

void appendUtf8(std::string &out, char16_t unit)
{
    const unsigned value = unit;
    if (value < 0x80) {
        out += static_cast<char>(value);
    } else if (value < 0x800) {
        out += {static_cast<char>(0xC0 | value >> 6), static_cast<char>(0x80 | (value & 0x3F))};
    } else {
        out += {static_cast<char>(0xE0 | value >> 12), static_cast<char>(0x80 | (value >> 6 & 0x3F)),
                static_cast<char>(0x80 | (value & 0x3F))};
    }
}

std::string encodeCp932(std::string_view utf8)
{
    const Tables &table = tables();
    // No character takes more bytes here than in UTF-8.
    std::string out(utf8.size(), '\0');
    char *end = out.data();
    for (std::size_t at = 0; at < utf8.size();) {
        const Decoded next = nextCharacter(utf8.substr(at));
        at += next.size;
        const unsigned code = next.character < 0x80      ? static_cast<unsigned>(next.character)
                              : next.character < 0x10000 ? table.code[next.character]
                                                         : 0;
        if (code > 0xFF) *end++ = static_cast<char>(code >> 8);
        *end++ = code == 0 && next.character != 0 ? '?' : static_cast<char>(code & 0xFF);
    }
    out.resize(static_cast<std::size_t>(end - out.data()));
    return out;
}

std::string decodeCp932(std::string_view bytes)
{
    const Tables &table = tables();
    std::string out;
    out.reserve(bytes.size() + bytes.size() / 2);
    for (std::size_t at = 0; at < bytes.size();) {
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (byte < 0x80) {
            at += takeAscii(out, bytes.substr(at));
            continue;
        }
        ++at;
        char16_t unit = table.single[byte];
        // A lead byte takes a trail byte with it even when the two are no character; anything else stays for itself.
        if (isCp932Lead(byte) && at < bytes.size() && isTrail(static_cast<unsigned char>(bytes[at])))
            unit = table.pair[static_cast<std::size_t>(byte << 8 | static_cast<unsigned char>(bytes[at++]))];
        appendUtf8(out, unit == 0 ? kReplacement : unit);
    }
    return out;
}

} // namespace inin
