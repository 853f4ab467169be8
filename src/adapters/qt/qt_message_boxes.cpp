#include "adapters/qt/qt_message_boxes.h"

#include "adapters/qt/pointer_shape.h"
#include "adapters/qt/qt_text.h"

#include <QApplication>
#include <QClipboard>
#include <QShortcut>

namespace inin::qt {

namespace {

QMessageBox::Icon boxIcon(Icon icon)
{
    switch (icon) {
    case Icon::critical:
        return QMessageBox::Critical;
    case Icon::exclamation:
        return QMessageBox::Warning;
    case Icon::information:
        return QMessageBox::Information;
    case Icon::none:
        break;
    }
    return QMessageBox::NoIcon;
}

/// Ctrl+C copies the text of the box, as in Windows, for users who report an error.
void copyByKey(QMessageBox &box)
{
    const auto *const copy = new QShortcut(QKeySequence::Copy, &box); // owned by the box
    QObject::connect(copy, &QShortcut::activated, &box, [&box] { QGuiApplication::clipboard()->setText(box.text()); });
}

} // namespace

void QtMessageBoxes::show(const std::string &text, Icon icon, const std::string &title)
{
    pressed(QMessageBox::Ok, text, icon, title);
}

bool QtMessageBoxes::askRetry(const std::string &text, Icon icon, const std::string &title)
{
    return pressed(QMessageBox::Retry | QMessageBox::Cancel, text, icon, title) == QMessageBox::Retry;
}

int QtMessageBoxes::pressed(QMessageBox::StandardButtons buttons, const std::string &text, Icon icon,
                            const std::string &title)
{
    if (m_beforeText) m_beforeText();
    const UsualPointer pointer;
    QMessageBox box(QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText); // the text may contain something like markup
    box.setText(toQt(text).replace("\r\n", "\n").replace('\r', '\n'));
    box.setIcon(boxIcon(icon));
    box.setWindowTitle(toQt(title.empty() ? std::string(kApplicationTitle) : title));
    box.setStandardButtons(buttons);
    box.setWindowModality(Qt::ApplicationModal);
    copyByKey(box);
    const int button = box.exec();
    m_edge.throwKept();
    return button;
}

} // namespace inin::qt
