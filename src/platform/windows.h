#pragma once

#include "platform/form.h"

#include <string>

namespace inin {

enum class Modality { modeless, modal };

/// The window system. Events that it raises in a form run at the edge of an event procedure (atEventEdge).
class Windows {
public:
    Windows() = default;
    Windows(const Windows &) = delete;
    Windows &operator=(const Windows &) = delete;
    virtual ~Windows() = default;

    /// Loads the form, if it is not, and shows it. Modal: comes back when the form is unloaded.
    /// A RuntimeError of the load goes to the caller.
    virtual void show(Form &form, Modality modality) = 0;
    /// Checks that the file is a picture: 53 or 76 no such file, 75 a folder, 481 no picture. A picture of a known kind
    /// that cannot be painted here passes, and its place stays bare.
    virtual void checkPicture(const std::string &path) = 0;
    virtual void beep() = 0;
    /// Lets waiting events run.
    virtual void giveTime() = 0;
    virtual void moveFocus(Form &form, Control &control) = 0;
    virtual void sendTab(Form &form) = 0;
    /// The control that has the focus, nullptr for none.
    [[nodiscard]] virtual Control *activeControl(Form &form) = 0;
};

} // namespace inin
