#pragma once

#include "adapters/script/command_reader.h"
#include "adapters/script/transcript.h"
#include "platform/files.h"
#include "platform/windows.h"
#include "runtime/regional.h"
#include "screen/form.h"

#include <map>

namespace inin::script {

/// Forms without a screen: the commands replace the user of a modal form. Each command is applied to the topmost modal
/// form, whose loop reads it. At the end of the commands the control box closes the form, repeatedly if it refuses.
class ScriptWindows : public Windows {
public:
    ScriptWindows(Transcript &transcript, CommandReader &commands, Files &files, Regional regional)
        : m_transcript(transcript), m_commands(commands), m_files(files), m_regional(std::move(regional))
    {
    }

    void show(Form &form, Modality modality) override;
    void checkPicture(const std::string &path) override;
    void beep() override;
    /// Events are raised only by commands, so none can be waiting.
    void processWaitingEvents() override {}
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
    void recordRefusal(const std::string &control);

    Transcript &m_transcript;
    CommandReader &m_commands;
    Files &m_files;
    Regional m_regional;
    std::map<const Form *, Control *> m_focus;
};

} // namespace inin::script
