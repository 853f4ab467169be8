#pragma once

#include "viewer/check/cause.h"
#include "viewer/document/letter_bundles.h"
#include "viewer/ledger/ledger_place.h"

#include <QByteArray>
#include <QSettings>
#include <QString>

#include <cstdint>

namespace inin::viewer {

/// How far a printer shifts its output, in tenths of a millimetre to the right and downwards.
struct PrinterOffset {
    std::int32_t right = 0, down = 0;
    friend bool operator==(const PrinterOffset &, const PrinterOffset &) = default;
};

/// How the window was divided and how the page was shown; 0 and an empty text mean the defaults.
struct ViewLayout {
    int listWidth = 0, checkHeight = 0;
    QString zoom; ///< "page", "width" or a factor
};

/// The viewer's settings, in an ini file beside the user's other settings.
class ViewerSettings {
public:
    /// An empty path means the user's own file.
    explicit ViewerSettings(const QString &path = {});

    [[nodiscard]] PrinterOffset offsetOf(const QString &printer) const;
    void setOffset(const QString &printer, const PrinterOffset &offset);
    [[nodiscard]] QString printer() const;
    void setPrinter(const QString &printer);
    /// The name of a choice of the dialog; empty for the printer's own setting.
    [[nodiscard]] QString duplexOf(const QString &printer) const;
    void setDuplex(const QString &printer, const QString &duplex);
    /// The key of a tray; empty for the printer's own setting.
    [[nodiscard]] QString trayOf(const QString &printer) const;
    void setTray(const QString &printer, const QString &tray);
    [[nodiscard]] LetterOrder letterOrder() const;
    void setLetterOrder(LetterOrder order);
    [[nodiscard]] LetterArrangement arrangement() const;
    void setArrangement(const LetterArrangement &arrangement);
    /// 0 means one job for all letters.
    [[nodiscard]] int lettersPerJob() const;
    void setLettersPerJob(int letters);
    [[nodiscard]] QString fileNamePattern() const;
    void setFileNamePattern(const QString &pattern);
    /// True when letters are saved as PDF/A.
    [[nodiscard]] bool savesForArchive() const;
    void setSavesForArchive(bool archive);
    /// The folder where PDF files were last saved; empty when it is unknown or no longer exists.
    [[nodiscard]] QString pdfFolder() const;
    void setPdfFolder(const QString &folder);
    [[nodiscard]] QByteArray windowPlace() const;
    void setWindowPlace(const QByteArray &place);
    [[nodiscard]] ViewLayout viewLayout() const;
    void setViewLayout(const ViewLayout &layout);
    /// The causes that the check leaves out.
    [[nodiscard]] CauseSet switchedOffCauses() const;
    void setSwitchedOffCauses(const CauseSet &causes);
    [[nodiscard]] LedgerSettings ledger() const;
    void setLedger(const LedgerSettings &ledger);
    /// Whether the letters show their codes (整理番号).
    [[nodiscard]] bool printsCodes() const;
    void setPrintsCodes(bool prints);
    /// Writes changed settings; false when the file cannot be written.
    bool save();

private:
    QSettings m_file;
};

} // namespace inin::viewer
