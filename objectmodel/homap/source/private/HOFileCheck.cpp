#include "source/private/HOFileCheck.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <cerrno>

namespace HXObjects {

bool HOFileCheck::IsReadable(const std::string& path, HOString* reason) {
    if (!isLocalPath(path)) return true;
    struct stat target;
    if (::stat(path.c_str(), &target) != 0) {
        const int error = errno;
        struct stat link;
        if (error == ELOOP)
            *reason = QCoreApplication::translate("HXObjects::HOFileCheck", "a loop of symbolic links");
        else if (error == EACCES)
            *reason = QCoreApplication::translate("HXObjects::HOFileCheck", "permission denied");
        else if (::lstat(path.c_str(), &link) == 0 && S_ISLNK(link.st_mode))
            *reason =
                QCoreApplication::translate("HXObjects::HOFileCheck", "a symbolic link to a missing file");
        else
            *reason = QCoreApplication::translate("HXObjects::HOFileCheck", "no such file");
        return false;
    }
    if (!S_ISREG(target.st_mode) && !S_ISDIR(target.st_mode)) {
        *reason = QCoreApplication::translate("HXObjects::HOFileCheck", "not a regular file");
        return false;
    }
    // The administrator passes access() whatever the mode; a file whose mode lets nobody read it
    // is refused for every user alike.
    const mode_t readable = S_ISDIR(target.st_mode) ? (S_IRUSR | S_IXUSR) : S_IRUSR;
    const bool anyoneMay = (target.st_mode & readable) == readable ||
                           (target.st_mode & (readable >> 3)) == (readable >> 3) ||
                           (target.st_mode & (readable >> 6)) == (readable >> 6);
    if (!anyoneMay || ::access(path.c_str(), S_ISDIR(target.st_mode) ? R_OK | X_OK : R_OK) != 0) {
        *reason = QCoreApplication::translate("HXObjects::HOFileCheck", "permission denied");
        return false;
    }
    return companionsAreFiles(path, S_ISDIR(target.st_mode), reason);
}

bool HOFileCheck::companionsAreFiles(const std::string& path, bool directory, HOString* reason) {
    const QFileInfo info(QFile::decodeName(path.c_str()));
    const QDir folder = directory ? QDir(info.filePath()) : info.dir();
    const QString stem = info.completeBaseName() + '.';
    for (const QString& name :
         folder.entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot)) {
        if (!directory && !name.startsWith(stem)) continue;
        struct stat companion;
        if (::stat(QFile::encodeName(folder.filePath(name)).constData(), &companion) == 0 &&
            !S_ISREG(companion.st_mode) && !S_ISDIR(companion.st_mode)) {
            *reason = QCoreApplication::translate("HXObjects::HOFileCheck",
                                                  "its companion '%1' is not a regular file")
                          .arg(name);
            return false;
        }
    }
    return true;
}

bool HOFileCheck::isLocalPath(const std::string& path) {
    if (path.compare(0, 4, "/vsi") == 0) return false;
    // "PG:dbname=…", "GPKG:/data/x.gpkg:table": a prefix before any slash names a driver.
    const std::size_t colon = path.find(':');
    return colon == std::string::npos || path.find('/') < colon;
}

}  // namespace HXObjects
