#pragma once

#include <string>

namespace inin {

class Control;
class Form;

enum class Modality { modeless, modal };

/// The window system. It raises the events of a form through atEventEdge.
class Windows {
public:
    Windows() = default;
    Windows(const Windows &) = delete;
    Windows &operator=(const Windows &) = delete;
    virtual ~Windows() = default;

    /// Loads the form if necessary and shows it. A modal show returns when the form is unloaded. Passes on a
    /// RuntimeError of the load.
    virtual void show(Form &form, Modality modality) = 0;
    /// Checks that the file is a picture. Errors: 53 or 76 no such file, 75 a folder, 481 not a picture. A known format
    /// that cannot be painted here passes, and its box remains empty.
    virtual void checkPicture(const std::string &path) = 0;
    virtual void beep() = 0;
    /// Processes pending events.
    virtual void processWaitingEvents() = 0;
    virtual void moveFocus(Form &form, Control &control) = 0;
    virtual void sendTab(Form &form) = 0;
    /// The control with the focus, nullptr for none.
    [[nodiscard]] virtual Control *activeControl(Form &form) = 0;
};

} // namespace inin
