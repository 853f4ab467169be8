#pragma once

#include <string>

namespace inin {

/// The application's title, the default title of a box.
inline constexpr const char *kApplicationTitle = "委任状印刷";

enum class Icon { none = 0, critical = 16, exclamation = 48, information = 64 };

/// Message boxes: with an OK button, or with a question.
class MessageBoxes {
public:
    MessageBoxes() = default;
    MessageBoxes(const MessageBoxes &) = delete;
    MessageBoxes &operator=(const MessageBoxes &) = delete;
    virtual ~MessageBoxes() = default;

    /// Shows a box and returns when it is closed. An empty title means the application's.
    virtual void show(const std::string &text, Icon icon, const std::string &title = {}) = 0;
    /// Shows a box with the buttons Retry and Cancel; true for Retry. A program without an operator returns false.
    [[nodiscard]] virtual bool askRetry(const std::string &text, Icon icon, const std::string &title = {}) = 0;
};

} // namespace inin
