#pragma once

#include "adapters/qt/input_method.h"

#include <QLineEdit>

namespace inin::qt {

/// An edit box that reads its text as a whole, not at each key: when it loses the focus, and before each event of a
/// form (see EventEdge). While it has the focus, the input method is off unless the user turns it on.
class TypedBox : public QLineEdit {
public:
    using QLineEdit::QLineEdit;
    /// Reads the text typed since the last reading; does nothing without such a text.
    virtual void commit() = 0;

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    InputMethod m_inputMethodBefore = InputMethod::off; ///< restored for the next box
};

} // namespace inin::qt
