#include "source/private/HOTransactionWriter.h"

#include <QCoreApplication>

namespace HXObjects {

void HOTransactionWriter::Recover(const std::string& gpkg) {
    VSIStatBufL journal;
    if (VSIStatL((gpkg + "-journal").c_str(), &journal) != 0 || journal.st_size == 0) return;
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    static const char* const drivers[] = {"GPKG", nullptr};
    GDALDatasetUniquePtr(GDALDataset::Open(gpkg.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE, drivers));
}

bool HOTransactionWriter::Apply(std::vector<HOFeatureChange>& changes, HOString* error) {
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    if (!m_dataset) m_dataset = openForUpdate(m_path, error);
    if (!m_dataset) return false;
    OGRLayer* layer = m_dataset->GetLayerByName(m_layer.c_str());
    if (!layer) {
        *error = QCoreApplication::translate("HXObjects::HOTransactionWriter",
                                             "the layer '%1' is gone from the source")
                     .arg(QString::fromUtf8(m_layer.c_str()));
        m_dataset.reset();
        return false;
    }
    CPLErrorReset();
    if (m_dataset->StartTransaction() != OGRERR_NONE) {
        *error =
            QCoreApplication::translate("HXObjects::HOTransactionWriter", "cannot start a transaction: %1")
                .arg(QString::fromUtf8(CPLGetLastErrorMsg()));
        m_dataset.reset();
        return false;
    }
    if (write(layer, changes, true, error)) {
        CPLErrorReset();
        if (m_dataset->CommitTransaction() == OGRERR_NONE) return true;
        *error = QCoreApplication::translate("HXObjects::HOTransactionWriter", "cannot commit the edit: %1")
                     .arg(QString::fromUtf8(CPLGetLastErrorMsg()));
    } else {
        m_dataset->RollbackTransaction();
    }
    m_dataset.reset();
    return false;
}

}  // namespace HXObjects
