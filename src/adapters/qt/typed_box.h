#pragma once

#include <QLineEdit>

namespace inin::qt {

/// An edit box that reads its text as a whole, not at each key: when the box is left, and before each event of a form
/// (see EventEdge).
class TypedBox : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    /// Reads what was typed since the last reading; without such a text it does nothing.
    virtual void commit() = 0;

protected:
    void focusOutEvent(QFocusEvent *event) override;
};

} // namespace inin::qt
