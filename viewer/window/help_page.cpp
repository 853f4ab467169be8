#include "viewer/window/help_page.h"

#include <QRegularExpression>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

/// The widget's object name.
struct HelpPlace {
    const char *widget, *heading;
};
constexpr HelpPlace kPlaces[] = {
    {"printDialog", "印刷する"},          {"pdfDialog", "PDF に保存する"},      {"ledgerDialog", "台帳の設定"},
    {"returnsWindow", "返送の確認"},      {"paperBar", "印刷した紙を確かめる"}, {"changesPane", "前回との違い"},
    {"comparedLine", "前回との違い"},     {"printedLine", "印刷済みの人"},      {"checkTree", "印刷の前の点検"},
    {"letterList", "委任状を選ぶ、探す"}, {"find", "委任状を選ぶ、探す"},       {"filter", "委任状を選ぶ、探す"},
};
constexpr const char *kElsewhere = "プレビューと印刷";

bool isLetter(QChar character)
{
    return character.isLetterOrNumber() || character.isMark() || character == u' ' || character == u'-' ||
           character == u'_';
}

} // namespace

QString helpHeading(const QWidget *place)
{
    for (; place != nullptr; place = place->parentWidget()) {
        const auto *const found = std::ranges::find_if(
            kPlaces, [&](const HelpPlace &known) { return place->objectName() == QLatin1String(known.widget); });
        if (found != std::end(kPlaces)) return QString::fromUtf8(found->heading);
    }
    return QString::fromUtf8(kElsewhere);
}

std::vector<QString> helpHeadings()
{
    std::vector<QString> headings{QString::fromUtf8(kElsewhere)};
    for (const HelpPlace &place : kPlaces) headings.push_back(QString::fromUtf8(place.heading));
    return headings;
}

QString joinedLines(QString markdown)
{
    static const QRegularExpression kBreak(
        u"(?<=[\\x{3000}-\\x{9FFF}\\x{FF00}-\\x{FFEF}*])\\n *(?=[\\x{3000}-\\x{9FFF}\\x{FF00}-\\x{FFEF}])"_s);
    return markdown.replace(kBreak, QString());
}

QString headingAnchor(const QString &heading)
{
    QString anchor;
    for (const QChar character : heading.trimmed().toLower())
        if (isLetter(character)) anchor += character == u' ' ? QChar(u'-') : character;
    return anchor;
}

} // namespace inin::viewer
