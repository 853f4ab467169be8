#pragma once

#include <QObject>
#include <QString>

namespace inin::bench {

/// Ends the process when a window of that name has been painted with its content and passed to the display, and prints
/// the steady clock's count at that moment.
class EndAtPaint : public QObject {
public:
    /// Starts watching; lives to the end of the process.
    static void of(const char *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit EndAtPaint(const char *window) : m_window(QString::fromLatin1(window)) {}
    [[nodiscard]] bool isOurs(QObject *watched) const;
    [[noreturn]] static void printAndEnd();

    QString m_window;
    bool m_hasPainted = false;
};

} // namespace inin::bench
