#pragma once

#include <QWidget>

class QLineEdit;
class QTextBrowser;
class QUrl;

namespace inin::viewer {

/// The user's manual, which is part of the program and needs no network. It belongs to a window and can be read while that
/// window is modal.
class HelpWindow : public QWidget {
public:
    explicit HelpWindow(QWidget *owner);
    /// False for a heading that the manual does not have.
    bool showHeading(const QString &heading);
    /// Follows a link of the manual. False if it leads nowhere within the manual.
    bool follow(const QUrl &link);

private:
    void open(const QUrl &link);
    void find();

    QTextBrowser *m_text;
    QLineEdit *m_find;
};

/// Lets F1 in a window open the manual at the page about the widget with the focus.
void addHelpKey(QWidget *window);
/// Opens the manual at the page about a widget.
void showHelp(QWidget *place);

} // namespace inin::viewer
