#pragma once

#include "viewer/check/cause.h"

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

/// The viewer's settings, in an ini file beside the user's other settings.
class ViewerSettings {
public:
    /// An empty path means the user's own file.
    explicit ViewerSettings(const QString &path = {});

    [[nodiscard]] PrinterOffset offsetOf(const QString &printer) const;
    void setOffset(const QString &printer, const PrinterOffset &offset);
    [[nodiscard]] QString printer() const;
    void setPrinter(const QString &printer);
    /// 0 means one job for all letters.
    [[nodiscard]] int lettersPerJob() const;
    void setLettersPerJob(int letters);
    [[nodiscard]] QString fileNamePattern() const;
    void setFileNamePattern(const QString &pattern);
    /// The folder where PDF files were last saved; empty when it is unknown or no longer exists.
    [[nodiscard]] QString pdfFolder() const;
    void setPdfFolder(const QString &folder);
    [[nodiscard]] QByteArray windowPlace() const;
    void setWindowPlace(const QByteArray &place);
    /// The causes that the check leaves out.
    [[nodiscard]] CauseSet switchedOffCauses() const;
    void setSwitchedOffCauses(const CauseSet &causes);
    /// Writes changed settings; false when the file cannot be written.
    bool save();

private:
    QSettings m_file;
};

} // namespace inin::viewer
