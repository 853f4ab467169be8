#pragma once

#include "viewer/window/viewer_settings.h"

#include <QGroupBox>

#include <functional>

class QDoubleSpinBox;
class QPushButton;

namespace inin::viewer {

/// The group 位置の調整 of the print dialog: how far a printer's pages are moved, and the test page for measuring it.
class OffsetBox : public QGroupBox {
public:
    explicit OffsetBox(QWidget *parent = nullptr);
    [[nodiscard]] PrinterOffset offset() const;
    void setOffset(const PrinterOffset &offset);
    void enableRulerPage(bool isEnabled);
    std::function<void()> onRulerPage;

private:
    QDoubleSpinBox *m_right, *m_down;
    QPushButton *m_rulers;
};

} // namespace inin::viewer
