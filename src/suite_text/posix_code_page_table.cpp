#include "suite_text/code_page_table.h"

#include <cstdint>
#include <stdexcept>

#include <iconv.h>

namespace inin {

namespace {

class Conversion {
public:
    /// Wide characters are the converter's own; any other result would take another step.
    Conversion() : m_descriptor(iconv_open("WCHAR_T", "CP932"))
    {
        // iconv_open reports a failure as the pointer -1.
        if (reinterpret_cast<std::intptr_t>(m_descriptor) == -1)
            throw std::runtime_error("the system's iconv has no code page 932");
    }
    Conversion(const Conversion &) = delete;
    Conversion &operator=(const Conversion &) = delete;
    ~Conversion() { iconv_close(m_descriptor); }

    /// Converts from `at` up to the first malformed byte and returns how many characters of `out` were filled.
    std::size_t run(char *&at, std::size_t &left, std::vector<wchar_t> &out) const
    {
        char *outAt = reinterpret_cast<char *>(out.data());
        std::size_t outLeft = out.size() * sizeof(wchar_t);
        iconv(m_descriptor, &at, &left, &outAt, &outLeft);
        return out.size() - outLeft / sizeof(wchar_t);
    }

private:
    iconv_t m_descriptor;
};

} // namespace

/// Convert many characters per call: one call each would slow the program's start noticeably.
std::vector<char16_t> systemUnits(const std::string &bytes, std::size_t width)
{
    const Conversion conversion;
    std::string in = bytes; // iconv takes it as non-const
    std::vector<wchar_t> out(in.size());
    std::vector<char16_t> found;
    char *at = in.data();
    for (std::size_t left = in.size(); left > 0;) {
        const std::size_t before = left;
        const std::size_t filled = conversion.run(at, left, out);
        if (filled != (before - left) / width) throw std::runtime_error("the code page has no such pairs");
        for (std::size_t i = 0; i < filled; ++i) found.push_back(static_cast<char16_t>(out[i]));
        if (left == 0) break;
        found.push_back(0); // it stopped at a malformed character
        at += width;
        left -= width;
    }
    return found;
}

} // namespace inin
