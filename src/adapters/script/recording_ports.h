#pragma once

#include "adapters/script/transcript.h"
#include "platform/database.h"
#include "platform/message_boxes.h"
#include "platform/processes.h"
#include "platform/windows.h"
#include "screen/form.h"

namespace inin::script {

// Ports that forward to other ones and record what happens in a transcript, with the events of a played script. With
// them the desktop program writes the same transcript as a play.

class RecordingBoxes : public MessageBoxes {
public:
    RecordingBoxes(Transcript &transcript, MessageBoxes &inner) : m_transcript(transcript), m_inner(inner) {}
    void show(const std::string &text, Icon icon, const std::string &title) override;
    [[nodiscard]] bool askRetry(const std::string &text, Icon icon, const std::string &title) override;

private:
    Transcript &m_transcript;
    MessageBoxes &m_inner;
};

class RecordingProcesses : public Processes {
public:
    RecordingProcesses(Transcript &transcript, Processes &inner) : m_transcript(transcript), m_inner(inner) {}
    void start(const std::string &commandLine, WindowStyle style) override;
    void openAddress(const std::string &address) override;
    [[nodiscard]] std::optional<std::string> computerName(std::size_t capacity) override;
    [[nodiscard]] std::uint32_t processId() override { return m_inner.processId(); }
    [[noreturn]] void end() override;

private:
    Transcript &m_transcript;
    Processes &m_inner;
};

/// A form is recorded as shown once it is loaded.
class RecordingWindows : public Windows {
public:
    RecordingWindows(Transcript &transcript, Windows &inner) : m_transcript(transcript), m_inner(inner) {}
    void show(Form &form, Modality modality) override;
    void checkPicture(const std::string &path) override { m_inner.checkPicture(path); }
    void beep() override;
    void processWaitingEvents() override { m_inner.processWaitingEvents(); }
    void moveFocus(Form &form, Control &control) override { m_inner.moveFocus(form, control); }
    void sendTab(Form &form) override { m_inner.sendTab(form); }
    [[nodiscard]] Control *activeControl(Form &form) override { return m_inner.activeControl(form); }

private:
    Transcript &m_transcript;
    Windows &m_inner;
};

/// Forwards to another database and records sessions and statements. Sessions are numbered from 1; each successful Open
/// is one session. Connection strings are never recorded, because they may contain a password.
class RecordingDatabase : public Database {
public:
    RecordingDatabase(Database &inner, Transcript &transcript) : m_inner(inner), m_transcript(transcript) {}

    [[nodiscard]] std::unique_ptr<Connection> newConnection() override;
    [[nodiscard]] std::unique_ptr<Recordset> newRecordset() override;
    [[nodiscard]] bool isWriterBusy() const override { return m_inner.isWriterBusy(); }

    /// For the recording connections: the number of a newly opened session.
    [[nodiscard]] int nextSession() { return ++m_sessions; }

private:
    Database &m_inner;
    Transcript &m_transcript;
    int m_sessions = 0;
};

} // namespace inin::script
