#pragma once

#include "platform/files.h"

#include <cstddef>
#include <memory>
#include <string>

namespace inin {

/// The bytes of a settings file, piece by piece.
class SettingsInput {
public:
    /// The file's errors go to the caller.
    SettingsInput(Files &files, const std::string &path);
    /// The next piece, empty at the end of the file. Error 7 with a sentence of its own for a file that is too large.
    [[nodiscard]] std::string read();

private:
    std::string m_path;
    std::unique_ptr<InputFile> m_file;
    std::size_t m_size = 0;
};

} // namespace inin
