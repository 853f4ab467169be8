#include "viewer/window/spool_pdf.h"

#include "viewer/document/paper_size.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/tray_text.h"

#include <QProcess>

#include <algorithm>
#include <iterator>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAskEvery = 30; ///< milliseconds

struct Sides {
    QPrinter::DuplexMode mode;
    const char *option;
};
/// The automatic setting has no entry: the queue then decides.
constexpr Sides kSides[] = {{QPrinter::DuplexNone, "sides=one-sided"},
                            {QPrinter::DuplexLongSide, "sides=two-sided-long-edge"},
                            {QPrinter::DuplexShortSide, "sides=two-sided-short-edge"}};

/// The options that name a tray, by the makers of printers.
constexpr const char *kTrayOptions[] = {"InputSlot", "media-source", "PaperSource", "HPPaperSource", "ARInputSlot"};

std::string lastLine(QByteArray words)
{
    words = words.trimmed();
    return words.mid(words.lastIndexOf('\n') + 1).toStdString();
}

} // namespace

QStringList lpArguments(const SpoolJob &job)
{
    QStringList arguments{u"-d"_s, job.order.printer,
                          u"-n"_s, QString::number(job.order.copies),
                          u"-t"_s, job.title,
                          u"-o"_s, u"collate=true"_s,
                          u"-o"_s, u"print-scaling=none"_s};
    // Some queues take a bare "B5" for another paper.
    if (job.paper) arguments << u"-o"_s << u"media="_s + qtText(paperMedia(*job.paper));
    const auto *const sides = std::ranges::find(kSides, job.order.duplex, &Sides::mode);
    if (sides != std::end(kSides)) arguments << u"-o"_s << QLatin1String(sides->option);
    if (!job.order.tray.isEmpty()) arguments << u"-o"_s << job.order.tray;
    return arguments << job.pdf;
}

std::vector<TrayChoice> traysInOptions(const QString &options)
{
    const QStringList lines = options.split(u'\n');
    for (const char *const option : kTrayOptions) {
        const QString name = QLatin1String(option);
        for (const QString &line : lines) {
            if (line.section(u':', 0, 0).section(u'/', 0, 0) != name) continue;
            std::vector<TrayChoice> trays;
            for (QString tray : line.section(u':', 1).split(u' ', Qt::SkipEmptyParts)) {
                if (tray.startsWith(u'*')) tray.remove(0, 1);
                trays.push_back({name + u'=' + tray, trayText(tray)});
            }
            return trays;
        }
    }
    return {};
}

std::string jobNumberIn(const QString &answer, const QString &printer)
{
    const QString job = printer + u'-';
    const qsizetype found = answer.lastIndexOf(job);
    if (found < 0) return {};
    const QStringView rest = QStringView(answer).mid(found + job.size());
    const auto *const end = std::ranges::find_if_not(rest, [](QChar c) { return c >= u'0' && c <= u'9'; });
    return utf8Text(rest.first(end - rest.begin()).toString());
}

SpoolResult runLp(const QString &lp, const SpoolJob &job, const std::function<bool()> &goesOn)
{
    using End = SpoolResult::End;
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(lp, lpArguments(job));
    bool isKilled = false;
    while (!process.waitForFinished(kAskEvery) && process.state() != QProcess::NotRunning) {
        if (isKilled || goesOn()) continue;
        isKilled = true;
        process.kill();
    }
    // The process may have finished before it was killed.
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
        process.error() != QProcess::FailedToStart)
        return {End::taken, {}, jobNumberIn(QString::fromUtf8(process.readAllStandardOutput()), job.order.printer)};
    return {isKilled ? End::cancelled : End::refused, lastLine(process.readAllStandardError()), {}};
}

} // namespace inin::viewer
