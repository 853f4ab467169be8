#include "viewer/window/spool_pdf.h"

#include <QStandardPaths>

namespace inin::viewer {

using namespace Qt::StringLiterals;

SpoolPdf systemSpool()
{
    const QString lp = QStandardPaths::findExecutable(u"lp"_s);
    if (lp.isEmpty()) return {};
    return [lp](const SpoolJob &job, const std::function<bool()> &goesOn) { return runLp(lp, job, goesOn); };
}

} // namespace inin::viewer
