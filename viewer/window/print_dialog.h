#pragma once

#include "viewer/window/print_order.h"

#include <QDialog>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace inin::viewer {

class ArrangementBox;
class LetterTicks;
class RangeBox;

/// A printer that the user can choose.
struct PrinterChoice {
    QString name;
    QString description; ///< as shown; the name for a printer without a description
    bool isDefault = false;
    QPrinter::DuplexMode duplex = QPrinter::DuplexNone; ///< its default
    /// Its trays, which take a moment to find out; empty for a printer whose trays are unknown.
    std::function<std::vector<TrayChoice>()> trays = {};
};
[[nodiscard]] std::vector<PrinterChoice> systemPrinters();

/// Lets the user choose how and which letters are printed. Ticks change at once; printing saves the rest.
class PrintDialog : public QDialog {
public:
    PrintDialog(LetterTicks &ticks, ViewerSettings &settings, std::vector<PrinterChoice> printers,
                QWidget *parent = nullptr);

    [[nodiscard]] PrintOrder order() const;
    /// Shows what the user should know about the ticked letters before printing, now and after each change of the ticks.
    void showNotices(std::function<QString(const LetterTicks &)> notices);
    /// Leaves out order and covers, which a single letter does not have.
    void hideArrangement();
    /// Called when the user has changed the ticks.
    std::function<void()> onTicksChanged;
    /// Prints the page of rulers; returns an error sentence or an empty text.
    std::function<std::string(const PrintOrder &)> onRulerPage;

protected:
    void accept() override;

private:
    QWidget *printerGroup();
    QWidget *jobGroup();
    QWidget *offsetGroup();
    void showPrinter();
    void showTrays(const PrinterChoice &printer);
    void printRulers();
    void enablePrint();
    void updateNotices();
    void remember();

    LetterTicks &m_ticks;
    ViewerSettings &m_settings;
    std::vector<PrinterChoice> m_printers;
    QComboBox *m_printer, *m_duplex, *m_tray;
    QSpinBox *m_copies, *m_perJob;
    RangeBox *m_range;
    ArrangementBox *m_arrangement;
    QRadioButton *m_oneJob, *m_manyJobs;
    QCheckBox *m_reversed;
    QDoubleSpinBox *m_right, *m_down;
    std::function<QString(const LetterTicks &)> m_noticesOf;
    QLabel *m_notices, *m_note;
    QPushButton *m_print, *m_rulers;
};

} // namespace inin::viewer
