#pragma once

#include "viewer/ledger/ledger_place.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

namespace inin::viewer {

/// The settings of the ledger. Erasing takes effect at once, the rest when the dialog is accepted.
class LedgerDialog : public QDialog {
public:
    LedgerDialog(const LedgerSettings &settings, QWidget *parent = nullptr);

    [[nodiscard]] LedgerSettings settings() const;
    /// Returns the file that settings lead to; empty for none.
    void setPathOf(std::function<QString(const LedgerSettings &)> pathOf);
    /// Lets the user choose a folder; empty when the user cancels.
    std::function<QString()> askFolder;
    /// Erases the ledger after a question; returns a sentence to show.
    std::function<QString()> onErase;

private:
    void showPath();

    QCheckBox *m_off;
    QSpinBox *m_months;
    QLineEdit *m_place;
    QLabel *m_path, *m_result;
    QPushButton *m_erase;
    std::function<QString(const LedgerSettings &)> m_pathOf;
};

} // namespace inin::viewer
