#pragma once

#include "viewer/window/print_order.h"

#include <QDialog>

#include <functional>
#include <vector>

class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace inin::viewer {

class LetterTicks;
class RangeBox;

/// A printer that can be chosen.
struct PrinterChoice {
    QString name;
    QString description; ///< shown; the name where a printer has none
    bool isDefault = false;
    QPrinter::DuplexMode duplex = QPrinter::DuplexNone; ///< its own setting
};
[[nodiscard]] std::vector<PrinterChoice> systemPrinters();

/// Asks how and which letters are printed. Ticks are set at once; the rest is remembered when printing is chosen.
class PrintDialog : public QDialog {
public:
    PrintDialog(LetterTicks &ticks, ViewerSettings &settings, std::vector<PrinterChoice> printers,
                QWidget *parent = nullptr);

    [[nodiscard]] PrintOrder order() const;
    /// What the check found, in a line.
    void showCheck(const QString &text);
    /// Called when the user has changed the ticks.
    std::function<void()> onTicksChanged;
    /// Prints the page with rulers and gives a fault's sentence.
    std::function<std::string(const PrintOrder &)> onRulerPage;

protected:
    void accept() override;

private:
    QWidget *printerGroup();
    QWidget *jobGroup();
    QWidget *offsetGroup();
    void showPrinter();
    void printRulers();
    void enablePrint();
    void remember();

    LetterTicks &m_ticks;
    ViewerSettings &m_settings;
    std::vector<PrinterChoice> m_printers;
    QComboBox *m_printer, *m_duplex;
    QSpinBox *m_copies, *m_perJob;
    RangeBox *m_range;
    QRadioButton *m_oneJob, *m_manyJobs;
    QDoubleSpinBox *m_right, *m_down;
    QLabel *m_check, *m_note;
    QPushButton *m_print, *m_rulers;
};

} // namespace inin::viewer
