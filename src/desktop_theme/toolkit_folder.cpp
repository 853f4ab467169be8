#include "desktop_theme/toolkit_folder.h"

#include "system/file_path.h"
#include "system/program_edges.h"

#include <QCoreApplication>

namespace inin::theme {

QString toolkitFolder()
{
    return QString::fromStdString(textOf(programFile().parent_path() / "qt"));
}

void useToolkitFolder()
{
    QCoreApplication::addLibraryPath(toolkitFolder() + QStringLiteral("/plugins"));
}

} // namespace inin::theme
