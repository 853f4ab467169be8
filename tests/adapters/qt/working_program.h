#pragma once

#include "adapters/qt/qt_text.h"
#include "adapters/qt/window_fixture.h"
#include "printing/print_form.h"
#include "shell/start.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QtTest/QTest>

#include <functional>
#include <string>
#include <vector>

namespace inin::qt {

/// The program from its start; acts run one by one once the conditions screen waits for the user.
struct Program : WindowFixture {
    Program()
    {
        // The windows read only real picture files, and the fake world has none.
        world.files.putText("C:\\SUITE\\Massage.ini",
                            "SYSTEM_SYS=\\SYS\nSYSTEM_TMP=\\TMP\nSYSTEM_ICON=\\ICON\n"
                            "SYSTEM_DATA=\\DATA\nWALLPAPER=none.bmp\nBASEID=0102\n終了患者施術期間=3\n");
        answer("cNameRyaku  FROM STAFF", {"nIDNo", "cName", "cNameRyaku"}, {{std::int32_t{11}, "佐藤 花子", ""}});
        answer(")staff", {"nIDNo", "cName", "cNameKana"}, {{std::int32_t{11}, "佐藤 花子", "サトウ"}});
        const std::int16_t base = 1, branch = 2;
        answer(
            "FROM RIYOUSHA  WHERE nIDNo >= 0",
            {"iKyotenCd", "iKyotenEb", "nIDNo", "cName", "cNameKana", "cNameRyaku", "cTelNo", "cAdress1", "cAdress2"},
            {{base, branch, std::int32_t{21}, "青木 一郎", "アオキ", "", "", "", ""},
             {base, branch, std::int32_t{22}, "伊藤 二郎", "イトウ", "", "", "", ""}});
    }
    void answer(const char *part, std::vector<std::string> columns, std::vector<std::vector<Variant>> rows)
    {
        FakeResult result;
        result.columns = std::move(columns);
        result.rows = std::move(rows);
        world.database.resultsByText.emplace_back(part, std::move(result));
    }
    /// Runs the program; true when it ended by its own end statement.
    [[nodiscard]] bool runs()
    {
        // Closes all windows that a test left open, so that a failing test does not hang.
        for (int closings = 0; closings < 3; ++closings)
            turns.then([] {
                if (QApplication::activeModalWidget() != nullptr) QApplication::activeModalWidget()->close();
            });
        bool ended = false;
        try {
            frmBack background(app);
            windows.show(background, Modality::modeless);
            windows.show(form, Modality::modal);
        } catch (const ProcessEnded &) {
            ended = true;
        }
        CHECK(turns.failure() == "");
        return ended;
    }
    void act(std::function<void()> act) { turns.then(std::move(act)); }
    [[nodiscard]] FormWindow &top() const { return *windows.topWindow(); }
    [[nodiscard]] QWidget &widget(const char *control) const { return top().widget(control); }
    void click(const char *control)
    {
        QTest::mouseClick(&widget(control), Qt::LeftButton, {}, QPoint(8, widget(control).height() / 2));
    }
    void key(Qt::Key code, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget *target = top().focusWidget() != nullptr ? top().focusWidget() : &top();
        QTest::keyClick(target, code, modifiers);
    }
    [[nodiscard]] std::string focused() const
    {
        return top().focusWidget() != nullptr ? fromQt(top().focusWidget()->objectName()) : std::string();
    }
    [[nodiscard]] bool handedBack() const
    {
        return world.processes.started == std::vector<std::string>{"1 C:\\SUITE\\Main.exe 2"};
    }

    frmPrintInin form{app};
};

} // namespace inin::qt
