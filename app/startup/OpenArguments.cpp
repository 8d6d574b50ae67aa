#include "app/startup/OpenArguments.h"

#include "app/ProjectSession.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace KOLT {

OpenArguments findOpenArguments(const std::vector<std::string>& arguments)
{
    OpenArguments found;
    for (const std::string& argument : arguments) {
        const QFileInfo info(QFile::decodeName(argument.c_str()));
        // Only what exists in full: an empty argument would be the working directory.
        if (argument.empty() || !info.exists())
            continue;
        const QString path = QDir::cleanPath(info.absoluteFilePath());
        if (info.isDir() && found.folder.isEmpty())
            found.folder = path;
        else if (info.isFile() && found.project.isEmpty() && ProjectSession::isProject(path))
            found.project = path;
    }
    return found;
}

} // namespace KOLT
