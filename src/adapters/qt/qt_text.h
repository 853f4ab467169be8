#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace inin::qt {

inline QString toQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// One for an attribute of a control, one for a literal.
inline QString toQt(const std::string &text)
{
    return QString::fromStdString(text);
}
inline QString toQt(const char *text)
{
    return QString::fromUtf8(text);
}

inline std::string fromQt(const QString &text)
{
    return text.toStdString();
}

} // namespace inin::qt
