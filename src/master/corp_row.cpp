#include "master/corp_row.h"

#include <cstddef>
#include <span>

namespace inin {

namespace {

// Words by code; `first` below is the code of the first one.
constexpr std::string_view kTypeWords[] = {"本社（往療基点）", "受領代理人", "受領代理人", "団体請求"};
constexpr std::string_view kKinSyubetsuWords[] = {"銀行", "金庫", "農協", "郵便局"};
constexpr std::string_view kKinSitenWords[] = {"本店", "支店", "本所", "支所", "出張所"};
constexpr std::string_view kKozaTypeWords[] = {"普通", "当座", "通知", "別段"};

std::string_view wordOfCode(std::span<const std::string_view> words, std::int32_t first, std::int32_t code)
{
    if (code < first || code - first >= static_cast<std::int32_t>(words.size())) return {};
    return words[static_cast<std::size_t>(code - first)];
}

} // namespace

std::string_view cD_CORP::sType(const std::int32_t &nCode)
{
    return wordOfCode(kTypeWords, 0, nCode);
}

std::string_view cD_CORP::sKinSyubetsu(const std::int32_t &nCode)
{
    return wordOfCode(kKinSyubetsuWords, 1, nCode);
}

std::string_view cD_CORP::sKinSiten(const std::int32_t &nCode)
{
    return wordOfCode(kKinSitenWords, 1, nCode);
}

std::string_view cD_CORP::sKozaType(const std::int32_t &nCode)
{
    return wordOfCode(kKozaTypeWords, 1, nCode);
}

} // namespace inin
