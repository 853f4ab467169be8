#pragma once

#include <QLabel>

namespace inin::qt {

/// A label whose text ends in "…" if there is no room for all of it; the tool tip then shows the whole text.
class ElidedLabel : public QLabel {
public:
    using QLabel::QLabel;
    [[nodiscard]] bool isCut() const;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QRect textRect() const;
};

} // namespace inin::qt
