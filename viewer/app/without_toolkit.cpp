#include "runtime/runtime_error.h"
#include "viewer/app/toolkit.h"
#include "viewer/io/system_edges.h"

namespace inin::viewer {

void prepareToolkit() {}

int showLetters(const ViewCommand &, const std::string &)
{
    showFailure("formviewer: このプログラムには画面がないので、--pdf か --check を指定してください。");
    return kBadCommand;
}

LedgerSettings ledgerSettings()
{
    return {};
}

bool printsCodes()
{
    return false;
}

int markReturned(const ReturnedCommand &)
{
    showFailure("formviewer: このプログラムは、読み取ったページを調べられません。");
    return kBadCommand;
}

void writePngs(const ViewCommand &, LetterRenderer &, const std::vector<std::size_t> &)
{
    throw RuntimeError(error_number::invalidCall, "このプログラムは PNG ファイルを書き出せません。");
}

} // namespace inin::viewer
