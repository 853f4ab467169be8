#pragma once

#include <QByteArray>
#include <QSettings>
#include <QString>

#include <cstdint>

namespace inin::viewer {

/// How far a printer moves what it prints, in tenths of a millimetre to the right and downwards.
struct PrinterOffset {
    std::int32_t right = 0, down = 0;
    friend bool operator==(const PrinterOffset &, const PrinterOffset &) = default;
};

/// What the viewer remembers, in an ini file beside the user's other settings.
class ViewerSettings {
public:
    /// An empty path is the user's own file.
    explicit ViewerSettings(const QString &path = {});

    [[nodiscard]] PrinterOffset offsetOf(const QString &printer) const;
    void setOffset(const QString &printer, const PrinterOffset &offset);
    [[nodiscard]] QString printer() const;
    void setPrinter(const QString &printer);
    /// 0 is one job for all letters.
    [[nodiscard]] int lettersPerJob() const;
    void setLettersPerJob(int letters);
    [[nodiscard]] QString fileNamePattern() const;
    void setFileNamePattern(const QString &pattern);
    /// Where PDF files were saved last; empty when that is not known or not there any more.
    [[nodiscard]] QString pdfFolder() const;
    void setPdfFolder(const QString &folder);
    [[nodiscard]] QByteArray windowPlace() const;
    void setWindowPlace(const QByteArray &place);
    /// Writes what is new; false when the file cannot be written.
    bool save();

private:
    QSettings m_file;
};

} // namespace inin::viewer
