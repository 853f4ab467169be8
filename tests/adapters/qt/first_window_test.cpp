// The start as the user sees it: the background window is shown before the program continues its start.

#include "adapters/qt/window_fixture.h"
#include "shell/start.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QEvent>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <functional>

using namespace inin;
using namespace inin::qt;

namespace {

/// Milliseconds, longer than a requested paint waits for the next frame of the display.
constexpr int kPaintTime = 60;

/// Counts the paints of a window's widgets.
class PaintWatch : public QObject {
public:
    PaintWatch() { QApplication::instance()->installEventFilter(this); }
    [[nodiscard]] int paints() const { return m_paints; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->isWidgetType()) ++m_paints;
        return false;
    }

private:
    int m_paints = 0;
};

/// A site without a wallpaper: the windows read only real picture files.
struct Start : WindowFixture {
    Start() { world.files.putText("C:\\SUITE\\Massage.ini", "SYSTEM_ICON=\\ICON\nWALLPAPER=none.bmp\nBASEID=0102\n"); }
};

/// A form with a line of text that closes at once.
struct NoteForm : Form {
    NoteForm() : Form("frmNote") { add(note); }
    std::function<void()> onLoad;
    Label note{"laNote"};

protected:
    void Form_Load() override
    {
        if (onLoad) onLoad();
    }
};

} // namespace

TEST_CASE("the next window is loaded only after the background has been painted")
{
    Start start;
    frmBack background(start.app);
    NoteForm next;
    const PaintWatch watch;
    bool wasExposed = false;
    int paints = 0;
    next.onLoad = [&] {
        wasExposed = start.windows.windowOf(background)->windowHandle()->isExposed();
        paints = watch.paints();
        next.unload(false);
    };
    start.windows.show(background, Modality::modeless);
    start.windows.show(next, Modality::modal);
    CHECK(wasExposed);
    CHECK(paints > 0);
}

TEST_CASE("setting the font does not repaint the background")
{
    Start start;
    frmBack background(start.app);
    start.windows.show(background, Modality::modeless);
    QTest::qWait(kPaintTime);
    const PaintWatch watch;
    const QFont before = QApplication::font();
    QFont larger = before;
    larger.setPointSizeF(before.pointSizeF() + 3);
    QApplication::setFont(larger);
    QTest::qWait(kPaintTime);
    QApplication::setFont(before);
    CHECK(watch.paints() == 0);
}

TEST_CASE("the font is requested before the first text, not for the background picture")
{
    Start start;
    int asked = 0;
    start.services.beforeText = [&asked] { ++asked; };
    QtWindows windows(start.world.files, start.services);
    frmBack background(start.app);
    SUBCASE("a window")
    {
        windows.show(background, Modality::modeless);
        CHECK(asked == 0);
        NoteForm next;
        QTimer::singleShot(0, &windows.windowOf(background)->content(), [&next] { next.unload(false); });
        windows.show(next, Modality::modal);
        CHECK(asked == 1);
    }
    SUBCASE("a box")
    {
        QtMessageBoxes boxes(start.edge, start.services.beforeText);
        QTimer::singleShot(0, qApp, [] { answerTopBox(); });
        boxes.show("起動できません！", Icon::critical, "");
        CHECK(asked == 1);
    }
}
