#include "viewer/window/ledger_lines.h"

#include "viewer/window/qt_text.h"

#include <algorithm>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

enum class Precision { day, minute };

QString timeText(Date moment, Date now, Precision precision)
{
    const DateParts parts = partsOf(moment);
    QString text = u"%1月%2日"_s.arg(parts.month).arg(parts.day);
    if (parts.year != partsOf(now).year) text.prepend(u"%1年"_s.arg(parts.year));
    constexpr int kDigits = 2, kDecimal = 10;
    if (precision == Precision::minute)
        text += u" %1:%2"_s.arg(parts.hour).arg(parts.minute, kDigits, kDecimal, QChar(u'0'));
    return text;
}

} // namespace

QString momentText(Date moment, Date now)
{
    return timeText(moment, now, Precision::minute);
}

QString runText(const RunSummary &run, Date now)
{
    return u"%1　%2通"_s.arg(momentText(run.printed.value_or(run.recorded), now)).arg(run.letters);
}

QList<LinkPart> comparedLine(const LedgerDesk &desk, Date now)
{
    const std::optional<RunSummary> &run = desk.comparedRun();
    if (!run) return {};
    const Date printed = run->printed.value_or(run->recorded);
    const RunComparison &comparison = desk.comparison();
    const auto isOther = [&](const RunSummary &other) { return other.id != run->id; };
    QList<LinkPart> choice;
    if (std::ranges::any_of(desk.earlierRuns(), isOther))
        choice = {{u"　"_s}, {u"比べる相手…"_s, QLatin1String(kRunsLink)}};
    if (comparison.isSame())
        return QList<LinkPart>{{u"%1 の%2通と同じ内容です。"_s.arg(momentText(printed, now)).arg(run->letters)}} +
               choice;
    const bool isLast = !desk.earlierRuns().empty() && desk.earlierRuns().front().id == run->id;
    const QString from = isLast ? u"前回（%1）から："_s.arg(timeText(printed, now, Precision::day))
                                : u"%1 の%2通から："_s.arg(momentText(printed, now)).arg(run->letters);
    struct Count {
        QString words;
        std::size_t letters;
        const char *link;
    };
    QList<LinkPart> parts{{from}};
    for (const Count &count : {Count{u"新しい %1通"_s, comparison.added.size(), kAddedLink},
                               Count{u"変わった %1通"_s, comparison.changed.size(), kChangedLink},
                               Count{u"なくなった %1通"_s, comparison.gone.size(), kGoneLink}}) {
        if (count.letters == 0) continue;
        if (parts.size() > 1) parts.append({u"、"_s});
        parts.append({count.words.arg(count.letters), QLatin1String(count.link)});
    }
    return parts + choice;
}

QString printedSentence(std::size_t letters)
{
    return u"この期間の委任状を印刷済みの人が%1通あります。"_s.arg(letters);
}

QList<LinkPart> printedLine(const LedgerDesk &desk)
{
    if (desk.printedAlready() == 0) return {};
    return {{printedSentence(desk.printedAlready())},
            {u"表示"_s, QLatin1String(kPrintedLink)},
            {u"　"_s},
            {u"チェックを外す"_s, QLatin1String(kUntickLink)}};
}

QString paperQuestion(const OpenOutput &print, bool isFromBefore, Date now)
{
    const QString when = isFromBefore ? u"%1 に"_s.arg(momentText(print.time, now)) : QString();
    return u"%1%2通をプリンターに送りました。紙を確認してください。"_s.arg(when).arg(print.letters.size());
}

QString changesText(const ChangedLetter &letter)
{
    QStringList lines;
    for (const ChangedField &field : letter.fields)
        lines << u"%1：「%2」から「%3」に変わりました。"_s.arg(qtText(field.column), qtText(field.before),
                                                               qtText(field.now));
    return lines.join(u'\n');
}

} // namespace inin::viewer
