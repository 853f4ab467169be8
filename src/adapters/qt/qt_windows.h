#pragma once

#include "adapters/qt/view_services.h"
#include "platform/files.h"
#include "platform/windows.h"
#include "screen/form.h"

#include <memory>
#include <vector>

namespace inin::qt {

class FormWindow;

/// The window system with real windows. A modal form runs its own loop until it is unloaded.
class QtWindows : public Windows {
public:
    QtWindows(Files &files, ViewServices services);
    ~QtWindows() override;

    void show(Form &form, Modality modality) override;
    void checkPicture(const std::string &path) override;
    void beep() override;
    void processWaitingEvents() override;
    void moveFocus(Form &form, Control &control) override;
    void sendTab(Form &form) override;
    [[nodiscard]] Control *activeControl(Form &form) override;

    /// The window of a shown form, or nullptr.
    [[nodiscard]] FormWindow *windowOf(const Form &form) const;
    /// The topmost window, or nullptr.
    [[nodiscard]] FormWindow *topWindow() const;

private:
    void listenToPointer(Form &form);
    FormWindow &open(Form &form, Modality modality);
    void runUntilUnloaded(Form &form);
    void activate(FormWindow &window);
    void remove(const FormWindow &window);

    Files &m_files;
    ViewServices m_services;
    std::vector<std::unique_ptr<FormWindow>> m_windows; ///< the last one is the topmost
    const FormWindow *m_active = nullptr;
};

} // namespace inin::qt
