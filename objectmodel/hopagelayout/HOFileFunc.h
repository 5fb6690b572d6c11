#pragma once
// HOFileFunc: the file a layout document is read from or written to. Reading takes the whole file;
// writing goes to a temporary file renamed over the old one, so a failed save leaves the old
// document as it was. It keeps the reason of the last failure and the warnings of the last read
// (sources that could not be opened).
#include <QByteArray>
#include <QDir>
#include <QString>
#include <QStringList>

#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOFileFunc {
public:
    explicit HOFileFunc(const QString& path) : m_path(path) {}

    QString Path() const { return m_path; }
    // The folder paths in the document are relative to.
    QDir Folder() const;
    bool ReadAll(QByteArray* bytes);
    bool WriteAll(const QByteArray& bytes);

    QString LastError() const { return m_error; }
    void SetError(const QString& error) { m_error = error; }
    QStringList Warnings() const { return m_warnings; }
    void SetWarnings(const QStringList& warnings) { m_warnings = warnings; }

private:
    QString m_path;
    QString m_error;
    QStringList m_warnings;
};

}  // namespace HXObjects
