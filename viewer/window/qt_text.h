#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace inin::viewer {

[[nodiscard]] inline QString qtText(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline std::string utf8Text(const QString &text)
{
    return text.toStdString();
}

} // namespace inin::viewer
