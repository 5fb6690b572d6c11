#include "source/private/HOShapefileWriter.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace HXObjects {

namespace {

// The companions an edit rewrites; a spatial index beside them would be stale and is dropped.
const char* const kWritten[] = {"shp", "shx", "dbf", "prj", "cpg"};
const char* const kStale[] = {"qix", "sbn", "sbx"};

bool Sync(const QString& path) {
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY);
    if (fd < 0) return false;
    const bool synced = ::fsync(fd) == 0;
    ::close(fd);
    return synced;
}

}  // namespace

// The file names of one shapefile: originals, copies and journal, by extension.
struct HOShapefileWriter::Names {
    explicit Names(const std::string& shp) {
        const QFileInfo info(QString::fromStdString(shp));
        dir = info.absolutePath();
        stem = info.completeBaseName();
        suffixCase = info.suffix() == "SHP" ? "upper" : "lower";
        for (const char* ext : kWritten) {
            const QString e = suffixCase == "upper" ? QString(ext).toUpper() : QString(ext);
            if (QFileInfo::exists(Original(e))) extensions << e;
        }
    }
    QString Original(const QString& ext) const { return dir + "/" + stem + "." + ext; }
    QString Copy(const QString& ext) const { return dir + "/" + stem + ".hxnew." + ext; }
    QString Journal() const { return dir + "/" + stem + ".hxjournal"; }

    QString dir, stem, suffixCase;
    QStringList extensions;
};

HOShapefileWriter::HOShapefileWriter(const std::string& shp) : HOFeatureWriter(shp, std::string()) {}

void HOShapefileWriter::Recover(const std::string& shp) {
    const Names names(shp);
    QFile journal(names.Journal());
    if (journal.open(QIODevice::ReadOnly)) {
        const QStringList extensions = QString::fromUtf8(journal.readAll()).split('\n', Qt::SkipEmptyParts);
        journal.close();
        // Finished once it is journaled: the renames not yet made are made now.
        for (const QString& ext : extensions)
            if (QFileInfo::exists(names.Copy(ext)))
                ::rename(QFile::encodeName(names.Copy(ext)).constData(),
                         QFile::encodeName(names.Original(ext)).constData());
        Sync(names.dir);
        QFile::remove(names.Journal());
    }
    dropCopies(names);
}

void HOShapefileWriter::dropCopies(const Names& names) {
    const QStringList copies = QDir(names.dir).entryList({names.stem + ".hxnew.*"}, QDir::Files);
    for (const QString& copy : copies) QFile::remove(names.dir + "/" + copy);
}

bool HOShapefileWriter::Apply(std::vector<HOFeatureChange>& changes, HOString* error) {
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    Recover(m_path);
    const Names names(m_path);
    if (!writeCopy(names, changes, error)) {
        dropCopies(names);
        return false;
    }
    QFile journal(names.Journal());
    if (!journal.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        journal.write(names.extensions.join('\n').toUtf8()) < 0 || !journal.flush() ||
        ::fsync(journal.handle()) != 0) {
        *error = QCoreApplication::translate("HXObjects::HOShapefileWriter", "cannot write beside '%1': %2")
                     .arg(QString::fromUtf8(m_path.c_str()), journal.errorString());
        journal.close();
        QFile::remove(names.Journal());
        dropCopies(names);
        return false;
    }
    journal.close();
    Sync(names.dir);
    for (const char* ext : kStale) QFile::remove(names.Original(ext));
    Recover(m_path);
    return true;
}

bool HOShapefileWriter::writeCopy(const Names& names, std::vector<HOFeatureChange>& changes,
                                  HOString* error) {
    for (const QString& ext : names.extensions) {
        QFile::remove(names.Copy(ext));
        if (!QFile::copy(names.Original(ext), names.Copy(ext))) {
            *error = QCoreApplication::translate("HXObjects::HOShapefileWriter",
                                                 "cannot write beside '%1' (is the disk full?)")
                         .arg(QString::fromUtf8(m_path.c_str()));
            return false;
        }
    }
    {
        GDALDatasetUniquePtr dataset =
            openForUpdate(names.Copy(names.extensions.first()).toStdString(), error);
        if (!dataset) return false;
        if (!write(dataset->GetLayer(0), changes, false, error)) return false;
        CPLErrorReset();
        dataset.reset();  // closing writes the headers
        if (CPLGetLastErrorType() >= CE_Failure) {
            *error = QCoreApplication::translate("HXObjects::HOShapefileWriter", "cannot write '%1': %2")
                         .arg(QString::fromUtf8(m_path.c_str()), QString::fromUtf8(CPLGetLastErrorMsg()));
            return false;
        }
    }
    for (const QString& ext : names.extensions) {
        if (!Sync(names.Copy(ext))) {
            *error = QCoreApplication::translate("HXObjects::HOShapefileWriter", "cannot write '%1' to disk")
                         .arg(QString::fromUtf8(m_path.c_str()));
            return false;
        }
    }
    return true;
}

}  // namespace HXObjects
