#include "viewer/letters/run_record.h"

#include <charconv>

namespace inin::viewer {

namespace {

constexpr std::string_view kFirstLine = "PrintInin run 1";
constexpr std::string_view kExtension = ".run";

/// Removes and returns the next line without its end, "\r\n" or "\n"; empty when no ended line is left.
std::optional<std::string_view> nextLine(std::string_view &rest)
{
    const std::size_t end = rest.find('\n');
    if (end == std::string_view::npos) return std::nullopt;
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::optional<std::uint64_t> readNumber(std::string_view digits)
{
    std::uint64_t number = 0;
    const char *const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

/// One of the two numbers of a record.
class NumberLine {
public:
    explicit NumberLine(std::string_view key) : m_key(key) {}

    /// False for a line of this key that is repeated or has a bad number.
    bool read(std::string_view line)
    {
        if (!line.starts_with(m_key)) return true;
        if (m_number) return false;
        m_number = readNumber(line.substr(m_key.size()));
        return m_number.has_value();
    }
    [[nodiscard]] std::optional<std::uint64_t> number() const { return m_number; }

private:
    std::string_view m_key;
    std::optional<std::uint64_t> m_number;
};

} // namespace

std::optional<RunRecord> readRunRecord(std::string_view text)
{
    if (nextLine(text) != kFirstLine) return std::nullopt;
    NumberLine fileSize("csv "), letters("letters ");
    while (const auto line = nextLine(text))
        if (!fileSize.read(*line) || !letters.read(*line)) return std::nullopt;
    if (!fileSize.number() || !letters.number()) return std::nullopt;
    return RunRecord{*fileSize.number(), *letters.number()};
}

std::string runRecordPath(std::string_view letterFile)
{
    const std::size_t name = letterFile.find_last_of("/\\") + 1; // 0 without a folder
    const std::size_t dot = letterFile.rfind('.');
    const bool hasExtension = dot != std::string_view::npos && dot >= name;
    return std::string(letterFile.substr(0, hasExtension ? dot : letterFile.size())).append(kExtension);
}

} // namespace inin::viewer
