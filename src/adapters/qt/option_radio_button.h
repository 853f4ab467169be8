#pragma once

#include <QRadioButton>

namespace inin::qt {

/// A radio button whose group is managed by its control record. Each is a tab stop; the arrow keys move through the
/// options of the same frame and select them.
class OptionRadioButton : public QRadioButton {
public:
    explicit OptionRadioButton(QWidget *parent);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    /// A click selects the option and never clears it.
    void nextCheckState() override { setChecked(true); }

private:
    void walk(int step);
};

} // namespace inin::qt
