#pragma once

#include <QLabel>
#include <QStatusBar>

namespace inin::viewer {

/// A line of text that ends in "…" where it has no room; the tip has the whole text. It never widens its window.
class CutLabel : public QLabel {
public:
    using QLabel::QLabel;
    void setLine(const QString &text);
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};

/// A status line whose messages are cut in the same way.
class StatusLine : public QStatusBar {
public:
    explicit StatusLine(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace inin::viewer
