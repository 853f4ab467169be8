#include "viewer/window/tray_text.h"

#include <algorithm>
#include <iterator>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

struct TrayName {
    const char *name; ///< in small letters, without hyphens and underscores
    const char *text;
};
constexpr TrayName kNames[] = {
    {"auto", "自動"},
    {"manual", "手差し"},
    {"manualfeed", "手差し"},
    {"bypass", "手差し"},
    {"bypasstray", "手差し"},
    {"multipurpose", "手差し"},
    {"multipurposetray", "手差し"},
    {"mp", "手差し"},
    {"upper", "上段"},
    {"middle", "中段"},
    {"lower", "下段"},
    {"cassette", "カセット"},
    {"largecapacity", "大容量トレイ"},
    {"envelope", "封筒"},
    {"main", "標準"},
    {"rear", "後トレイ"},
};

struct PaintedTray {
    QPrinter::PaperSource source;
    const char *name;
};
constexpr PaintedTray kPainted[] = {
    {QPrinter::Auto, "auto"},
    {QPrinter::Upper, "upper"},
    {QPrinter::Middle, "middle"},
    {QPrinter::Lower, "lower"},
    {QPrinter::Manual, "manual"},
    {QPrinter::Cassette, "cassette"},
    {QPrinter::LargeCapacity, "largecapacity"},
    {QPrinter::Envelope, "envelope"},
    {QPrinter::OnlyOne, "main"},
};

} // namespace

QString trayText(const QString &name)
{
    QString key = name.toLower();
    key.removeIf([](QChar letter) { return letter == u'-' || letter == u'_'; });
    const auto *const known =
        std::ranges::find_if(kNames, [&](const TrayName &tray) { return key == QLatin1String(tray.name); });
    if (known != std::end(kNames)) return QString::fromUtf8(known->text);
    if (key.startsWith(u"tray"_s) && key.size() > 4) return u"トレイ "_s + key.mid(4);
    return name;
}

TrayChoice paintedTrayChoice(QPrinter::PaperSource source)
{
    const auto *const known = std::ranges::find(kPainted, source, &PaintedTray::source);
    const QString number = QString::number(source);
    return {number, known == std::end(kPainted) ? u"トレイ "_s + number : trayText(QLatin1String(known->name))};
}

std::optional<QPrinter::PaperSource> paintedTray(const QString &key)
{
    bool isNumber = false;
    const int number = key.toInt(&isNumber);
    if (!isNumber || number < 0) return std::nullopt;
    return static_cast<QPrinter::PaperSource>(number);
}

} // namespace inin::viewer
