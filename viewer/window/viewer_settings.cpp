#include "viewer/window/viewer_settings.h"

#include "viewer/window/qt_text.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMaxPerJob = 10000;
/// No real printer has a larger offset; a larger value in the settings file is corrupt.
constexpr int kMaxOffset = 500;

QString ownPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/formviewer/formviewer.ini"_s;
}

/// A printer's name may contain the separator of keys.
QString printerKey(const QString &printer, const char *setting)
{
    const QString name = QString::fromLatin1(QUrl::toPercentEncoding(printer));
    return u"printers/"_s + (name.isEmpty() ? u"-"_s : name) + u'/' + QLatin1String(setting);
}

} // namespace

ViewerSettings::ViewerSettings(const QString &path) : m_file(path.isEmpty() ? ownPath() : path, QSettings::IniFormat) {}

PrinterOffset ViewerSettings::offsetOf(const QString &printer) const
{
    const auto read = [&](const char *direction) {
        return std::clamp(m_file.value(printerKey(printer, direction)).toInt(), -kMaxOffset, kMaxOffset);
    };
    return {read("offsetRight"), read("offsetDown")};
}

void ViewerSettings::setOffset(const QString &printer, const PrinterOffset &offset)
{
    m_file.setValue(printerKey(printer, "offsetRight"), offset.right);
    m_file.setValue(printerKey(printer, "offsetDown"), offset.down);
}

QString ViewerSettings::duplexOf(const QString &printer) const
{
    return m_file.value(printerKey(printer, "duplex")).toString();
}

void ViewerSettings::setDuplex(const QString &printer, const QString &duplex)
{
    m_file.setValue(printerKey(printer, "duplex"), duplex);
}

QString ViewerSettings::trayOf(const QString &printer) const
{
    return m_file.value(printerKey(printer, "tray")).toString();
}

void ViewerSettings::setTray(const QString &printer, const QString &tray)
{
    m_file.setValue(printerKey(printer, "tray"), tray);
}

LetterOrder ViewerSettings::letterOrder() const
{
    return m_file.value(u"print/reversed"_s).toBool() ? LetterOrder::reversed : LetterOrder::forward;
}

void ViewerSettings::setLetterOrder(LetterOrder order)
{
    m_file.setValue(u"print/reversed"_s, order == LetterOrder::reversed);
}

LetterArrangement ViewerSettings::arrangement() const
{
    const std::string name = utf8Text(m_file.value(u"output/order"_s).toString());
    return {letterSortNamed(name).value_or(LetterSort::extraction), m_file.value(u"output/covers"_s).toBool()};
}

void ViewerSettings::setArrangement(const LetterArrangement &arrangement)
{
    m_file.setValue(u"output/order"_s, QLatin1String(textOf(arrangement.sort).name));
    m_file.setValue(u"output/covers"_s, arrangement.hasCovers);
}

QString ViewerSettings::printer() const
{
    return m_file.value(u"print/printer"_s).toString();
}

void ViewerSettings::setPrinter(const QString &printer)
{
    m_file.setValue(u"print/printer"_s, printer);
}

int ViewerSettings::lettersPerJob() const
{
    return std::clamp(m_file.value(u"print/lettersPerJob"_s).toInt(), 0, kMaxPerJob);
}

void ViewerSettings::setLettersPerJob(int letters)
{
    m_file.setValue(u"print/lettersPerJob"_s, letters);
}

QString ViewerSettings::fileNamePattern() const
{
    return m_file.value(u"pdf/fileName"_s, u"{{番号}}_{{利用者氏名}}"_s).toString();
}

void ViewerSettings::setFileNamePattern(const QString &pattern)
{
    m_file.setValue(u"pdf/fileName"_s, pattern);
}

bool ViewerSettings::savesForArchive() const
{
    return m_file.value(u"pdf/archive"_s, false).toBool();
}

void ViewerSettings::setSavesForArchive(bool archive)
{
    m_file.setValue(u"pdf/archive"_s, archive);
}

QString ViewerSettings::pdfFolder() const
{
    const QString folder = m_file.value(u"pdf/folder"_s).toString();
    return !folder.isEmpty() && QFileInfo(folder).isDir() ? folder : QString();
}

void ViewerSettings::setPdfFolder(const QString &folder)
{
    m_file.setValue(u"pdf/folder"_s, folder);
}

QByteArray ViewerSettings::windowPlace() const
{
    return m_file.value(u"window/place"_s).toByteArray();
}

void ViewerSettings::setWindowPlace(const QByteArray &place)
{
    m_file.setValue(u"window/place"_s, place);
}

ViewLayout ViewerSettings::viewLayout() const
{
    const auto pixels = [this](const QString &key) {
        constexpr int kMostPixels = 20000;
        return std::clamp(m_file.value(key).toInt(), 0, kMostPixels);
    };
    return {pixels(u"window/listWidth"_s), pixels(u"window/checkHeight"_s), m_file.value(u"window/zoom"_s).toString()};
}

void ViewerSettings::setViewLayout(const ViewLayout &layout)
{
    m_file.setValue(u"window/listWidth"_s, layout.listWidth);
    m_file.setValue(u"window/checkHeight"_s, layout.checkHeight);
    m_file.setValue(u"window/zoom"_s, layout.zoom);
}

CauseSet ViewerSettings::switchedOffCauses() const
{
    CauseSet causes;
    for (const QString &name : m_file.value(u"check/switchedOff"_s).toStringList())
        if (const std::optional<Cause> cause = causeNamed(utf8Text(name))) causes.set(static_cast<std::size_t>(*cause));
    return causes;
}

void ViewerSettings::setSwitchedOffCauses(const CauseSet &causes)
{
    QStringList names;
    for (std::size_t i = 0; i < kCauses; ++i)
        if (causes.test(i)) names << qtText(textOf(static_cast<Cause>(i)).name);
    m_file.setValue(u"check/switchedOff"_s, names);
}

LedgerSettings ViewerSettings::ledger() const
{
    LedgerSettings ledger;
    ledger.isUsed = m_file.value(u"ledger/used"_s, ledger.isUsed).toBool();
    ledger.place = utf8Text(m_file.value(u"ledger/place"_s).toString());
    ledger.months = std::clamp(m_file.value(u"ledger/months"_s, ledger.months).toInt(), kFewestMonths, kMostMonths);
    return ledger;
}

void ViewerSettings::setLedger(const LedgerSettings &ledger)
{
    m_file.setValue(u"ledger/used"_s, ledger.isUsed);
    m_file.setValue(u"ledger/place"_s, qtText(ledger.place));
    m_file.setValue(u"ledger/months"_s, ledger.months);
}

bool ViewerSettings::printsCodes() const
{
    return m_file.value(u"print/codes"_s).toBool();
}

void ViewerSettings::setPrintsCodes(bool prints)
{
    m_file.setValue(u"print/codes"_s, prints);
}

bool ViewerSettings::save()
{
    m_file.sync();
    return m_file.status() == QSettings::NoError;
}

} // namespace inin::viewer
