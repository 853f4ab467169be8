#include "viewer/window/spool_pdf.h"

#include <QProcess>
#include <QStandardPaths>

namespace inin::viewer {

using namespace Qt::StringLiterals;

SpoolPdf systemSpool()
{
    const QString lp = QStandardPaths::findExecutable(u"lp"_s);
    if (lp.isEmpty()) return {};
    return [lp](const SpoolJob &job, const std::function<bool()> &goesOn) { return runLp(lp, job, goesOn); };
}

std::vector<TrayChoice> systemTrays(const QString &printer)
{
    if (QStandardPaths::findExecutable(u"lp"_s).isEmpty()) return {};
    // A print server that does not answer must not hold up the dialog.
    constexpr int kLongest = 2000;
    QProcess options;
    options.start(u"lpoptions"_s, {u"-p"_s, printer, u"-l"_s}, QIODevice::ReadOnly);
    if (!options.waitForFinished(kLongest)) {
        options.kill();
        options.waitForFinished();
        return {};
    }
    return traysInOptions(QString::fromUtf8(options.readAllStandardOutput()));
}

} // namespace inin::viewer
