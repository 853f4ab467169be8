#pragma once

#include <QComboBox>

namespace inin::qt {

/// A drop-down list. If there is no room for all of the chosen text, it ends in "…" (see theme::ClearStyle) and the
/// tool tip shows the whole text. The same holds for its items.
class DropDownList : public QComboBox {
public:
    using QComboBox::QComboBox;
    [[nodiscard]] bool isCut() const;
    void showPopup() override;

protected:
    bool event(QEvent *event) override;
};

} // namespace inin::qt
