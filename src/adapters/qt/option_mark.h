#pragma once

#include <QRadioButton>

namespace inin::qt {

/// A radio button whose group is kept elsewhere, by the control record. Each is a stop of the tab key; the arrows walk and
/// mark the options of the same frame.
class OptionMark : public QRadioButton {
public:
    explicit OptionMark(QWidget *parent);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    /// A click marks; it never takes the mark away.
    void nextCheckState() override { setChecked(true); }

private:
    void walk(int step);
};

} // namespace inin::qt
