#pragma once

#include "adapters/script/command_reader.h"
#include "adapters/script/transcript.h"
#include "platform/files.h"
#include "platform/windows.h"
#include "runtime/regional.h"
#include "screen/form.h"

#include <map>

namespace inin::script {

/// Forms without a screen: what a modal form's user does comes from the commands. A command goes to the topmost modal
/// form, which is the one that reads. At the end of the commands the control box is pressed again and again.
class ScriptWindows : public Windows {
public:
    ScriptWindows(Transcript &transcript, CommandReader &commands, Files &files, Regional regional)
        : m_transcript(transcript), m_commands(commands), m_files(files), m_regional(std::move(regional))
    {
    }

    void show(Form &form, Modality modality) override;
    void checkPicture(const std::string &path) override;
    void beep() override;
    /// Events come from commands alone, so none can be waiting.
    void giveTime() override {}
    void moveFocus(Form &form, Control &control) override { m_focus[&form] = &control; }
    void sendTab(Form &form) override;
    [[nodiscard]] Control *activeControl(Form &form) override;

private:
    void playNext(Form &form);
    void play(Form &form, const ScriptCommand &command);
    void playControl(Form &form, const ScriptCommand &command);
    void playRow(Form &form, const ScriptCommand &command);
    void playOn(Form &form, Control &control, const ScriptCommand &command);
    void closeAtEnd(Form &form);
    void tellRefused(const std::string &control);

    Transcript &m_transcript;
    CommandReader &m_commands;
    Files &m_files;
    Regional m_regional;
    std::map<const Form *, Control *> m_focus;
};

} // namespace inin::script
