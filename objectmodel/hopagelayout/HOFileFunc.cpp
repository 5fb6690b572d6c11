#include "HOFileFunc.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace HXObjects {

namespace {
// A layout document is a few kilobytes; anything this big is not one.
constexpr qint64 kMaxDocumentBytes = 64 * 1024 * 1024;
}  // namespace

QDir HOFileFunc::Folder() const {
    return QFileInfo(m_path).absoluteDir();
}

bool HOFileFunc::ReadAll(QByteArray* bytes) {
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_error =
            QCoreApplication::translate("HOFileFunc", "cannot open '%1': %2").arg(m_path, file.errorString());
        return false;
    }
    if (file.size() > kMaxDocumentBytes) {
        m_error = QCoreApplication::translate("HOFileFunc", "'%1' is too large to be a layout document")
                      .arg(m_path);
        return false;
    }
    *bytes = file.readAll();
    return true;
}

bool HOFileFunc::WriteAll(const QByteArray& bytes) {
    QSaveFile file(m_path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit()) return true;
    m_error =
        QCoreApplication::translate("HOFileFunc", "cannot write '%1': %2").arg(m_path, file.errorString());
    return false;
}

}  // namespace HXObjects
