#pragma once

#include "adapters/script/script_windows.h"
#include "runtime/runtime_error.h"
#include "screen/form.h"
#include "support/fake_files.h"

#include <sstream>
#include <string>
#include <vector>

namespace inin::script {

[[nodiscard]] inline std::vector<std::string> linesOf(const std::string &text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

/// A form with one control of each kind; `log` has the events that it received.
class StageForm : public Form {
public:
    explicit StageForm(const std::string &name = "frmStage") : Form(name)
    {
        add(fraBox);
        for (std::int16_t index = 0; index < 2; ++index) add(opt(index), &fraBox);
        for (Control *control : std::initializer_list<Control *>{&chk, &btn, &num, &dat, &txt, &lst, &lbl, &mnu, &img})
            add(*control);
        lst.AddItem("－ 指定なし －", -1);
        lst.AddItem("佐藤", 11);
        num.Min = 1;
        num.Max = 31;
        opt.onClick = [this](std::int16_t Index) { log.push_back("opt " + std::to_string(Index)); };
        chk.onClick = [this] { log.emplace_back("chk"); };
        btn.onClick = [this] { log.emplace_back("btn"); };
        mnu.onClick = [this] { log.emplace_back("mnu"); };
        dat.onChange = [this] { log.emplace_back("dat"); };
        lst.onClick = [this] { log.emplace_back("lst"); };
        num.onKeyPress = [this](std::int16_t code) { log.push_back("key " + std::to_string(code)); };
    }

    Frame fraBox{"fraBox"};
    OptionGroup opt{"opt", 2};
    CheckBox chk{"chk"};
    Button btn{"btn"};
    NumberBox num{"num"};
    DateBox dat{"dat"};
    TextBox txt{"txt"};
    ListBox lst{"lst"};
    Label lbl{"lbl"};
    MenuEntry mnu{"mnu", 112};
    ImageBox img{"img"};

    std::vector<std::string> log;
    std::vector<std::pair<std::string, Variant>> shownFields;
    std::vector<std::vector<std::string>> shownRows;
    std::function<void()> onLoad;
    int refusals = 0; ///< the number of closings to refuse

    [[nodiscard]] std::vector<std::pair<std::string, Variant>> fields() const override { return shownFields; }
    [[nodiscard]] std::vector<std::vector<std::string>> rows() const override { return shownRows; }
    void Form_Activate() override { log.emplace_back("activate"); }
    void Form_Resize() override { log.emplace_back("resize"); }

protected:
    void Form_Load() override
    {
        if (onLoad) onLoad();
    }
    void Form_QueryUnload(std::int16_t &Cancel, bool byControlBox) override
    {
        log.emplace_back(byControlBox ? "close by box" : "close by code");
        if (refusals > 0) Cancel = 1;
        if (refusals > 0) --refusals;
    }
};

/// Script windows with the commands of a test.
class ScriptStage {
public:
    explicit ScriptStage(const std::string &commands = {}) : m_in(commands) {}

    ScriptWindows &windows() { return m_windows; }
    FakeFiles files;
    [[nodiscard]] std::vector<std::string> events() const { return linesOf(m_out.str()); }

private:
    std::istringstream m_in;
    std::ostringstream m_out;
    Transcript m_transcript{m_out};
    CommandReader m_reader{m_in};
    ScriptWindows m_windows{m_transcript, m_reader, files, Regional{}};
};

/// Shows the form modally with these commands and returns the events between "shown" and "hidden".
[[nodiscard]] inline std::vector<std::string> playOn(Form &form, const std::string &commands)
{
    ScriptStage stage(commands);
    stage.windows().show(form, Modality::modal);
    std::vector<std::string> events = stage.events();
    return {events.begin() + 1, events.end() - 1};
}

} // namespace inin::script
