#pragma once

#include <QLineEdit>

namespace inin::qt {

/// An edit box that reads its text as a whole, not at each key: when it loses the focus, and before each event of a
/// form (see EventEdge).
class TypedBox : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    /// Reads the text typed since the last reading; does nothing without such a text.
    virtual void commit() = 0;

protected:
    void focusOutEvent(QFocusEvent *event) override;
};

} // namespace inin::qt
