#include "transfer/run_record.h"

#include <charconv>

namespace inin {

namespace {

constexpr std::string_view kFirstLine = "PrintInin run 1";
constexpr std::string_view kHolder = "holder ", kFileSize = "csv ", kLetters = "letters ";
constexpr std::string_view kExtension = ".run";

std::string keyLine(std::string_view key, std::string_view value)
{
    return std::string(key).append(value).append("\n");
}

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
class RecordNumber {
public:
    explicit RecordNumber(std::string_view key) : m_key(key) {}

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

std::string runRecordPath(std::string_view letterFile)
{
    const std::size_t name = letterFile.find_last_of("/\\") + 1; // 0 without a folder
    const std::size_t dot = letterFile.rfind('.');
    const bool hasExtension = dot != std::string_view::npos && dot >= name;
    return std::string(letterFile.substr(0, hasExtension ? dot : letterFile.size())).append(kExtension);
}

std::string runStartLines(const RunHolder &holder)
{
    return keyLine(kFirstLine, "") + keyLine(kHolder, holder.computer + " " + holder.process);
}

std::string runEndLines(const RunRecord &record)
{
    return keyLine(kFileSize, std::to_string(record.fileSize)) + keyLine(kLetters, std::to_string(record.letters));
}

std::optional<RunHolder> readRunHolder(std::string_view text)
{
    while (const auto next = nextLine(text)) {
        if (!next->starts_with(kHolder)) continue;
        const std::string_view words = next->substr(kHolder.size());
        const std::size_t gap = words.rfind(' ');
        if (gap == std::string_view::npos) return std::nullopt;
        return RunHolder{std::string(words.substr(0, gap)), std::string(words.substr(gap + 1))};
    }
    return std::nullopt;
}

std::optional<RunRecord> readRunRecord(std::string_view text)
{
    if (nextLine(text) != kFirstLine) return std::nullopt;
    RecordNumber fileSize(kFileSize), letters(kLetters);
    while (const auto line = nextLine(text))
        if (!fileSize.read(*line) || !letters.read(*line)) return std::nullopt;
    if (!fileSize.number() || !letters.number()) return std::nullopt;
    return RunRecord{*fileSize.number(), *letters.number()};
}

} // namespace inin
