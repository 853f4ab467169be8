#pragma once

#include "viewer/window/print_order.h"
#include "viewer/window/printer_choice.h"

#include <QDialog>

#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace inin::viewer {

class ArrangementBox;
class LetterTicks;
class OffsetBox;
class RangeBox;

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
    /// Leaves out what pages of a list do not need: numbers, several jobs, order and covers, and the measuring of offsets.
    void hideLetterChoices();
    /// Called when the user has changed the ticks.
    std::function<void()> onTicksChanged;
    /// Prints the page of rulers; returns an error sentence or an empty text.
    std::function<std::string(const PrintOrder &)> onRulerPage;

protected:
    void accept() override;

private:
    QWidget *printerGroup();
    QWidget *jobGroup();
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
    QWidget *m_jobs;
    RangeBox *m_range;
    ArrangementBox *m_arrangement;
    QRadioButton *m_oneJob, *m_manyJobs;
    QCheckBox *m_reversed;
    OffsetBox *m_offset;
    std::function<QString(const LetterTicks &)> m_noticesOf;
    QLabel *m_notices, *m_note;
    QPushButton *m_print;
};

} // namespace inin::viewer
