#include "common/settings_input.h"

#include "platform/settings_limit.h"
#include "runtime/runtime_error.h"

namespace inin {

namespace {
constexpr std::size_t kPieceSize = 65536;
} // namespace

SettingsInput::SettingsInput(Files &files, const std::string &path) : m_path(path), m_file(files.openForInput(path)) {}

std::string SettingsInput::read()
{
    std::string piece = m_file->read(kPieceSize);
    m_size += piece.size();
    if (m_size > kMaxSettingsBytes)
        throw RuntimeError(error_number::outOfMemory, "設定ファイル（" + m_path + "）が 16 MB を超えています。");
    return piece;
}

} // namespace inin
