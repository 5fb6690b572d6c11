#include "HODataSource.h"

#include <ogrsf_frmts.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>
#include <algorithm>

#include "source/private/HOFeatureLayerLoader.h"
#include "source/private/HOGdalOpener.h"
#include "source/private/HORasterLayerLoader.h"
#include "source/private/HOShapefileWriter.h"
#include "source/private/HOSharedDataset.h"
#include "source/private/HOTransactionWriter.h"

namespace HXObjects {

class HODataSource::Private {
public:
    HOString path;
    std::vector<HOString> names;
    // One of the two: the tables of a vector source, or a raster not yet handed to its layer.
    std::shared_ptr<HOSharedDataset> vector;
    GDALDatasetUniquePtr raster;
};

HODataSource::HODataSource() : d(std::make_unique<Private>()) {}
HODataSource::~HODataSource() = default;

HORefPtr<HODataSource> HODataSource::Open(const HOString& path, HOString* error) {
    HOString reason;
    HORefPtr<HODataSource> source = open(path, &reason);
    if (!source && error)
        *error = QCoreApplication::translate("HXObjects::HODataSource", "cannot open '%1': %2")
                     .arg(QString::fromUtf8(path.c_str()), QString::fromUtf8(reason.c_str()));
    return source;
}

HORefPtr<HODataSource> HODataSource::open(const HOString& path, HOString* reason) {
    // An edit interrupted by a crash is finished or dropped before anything reads the file.
    const QString suffix = QFileInfo(path.toQString()).suffix();
    if (suffix.compare("shp", Qt::CaseInsensitive) == 0) HOShapefileWriter::Recover(path.toStdString());
    if (suffix.compare("gpkg", Qt::CaseInsensitive) == 0) HOTransactionWriter::Recover(path.toStdString());
    GDALDatasetUniquePtr dataset = HOGdalOpener::Open(path.toStdString(), reason);
    if (!dataset) return nullptr;
    HORefPtr<HODataSource> source(new HODataSource);
    source->d->path = path;
    // A GeoPackage may hold tables and tiles alike; its tables are what it is opened for.
    if (dataset->GetLayerCount() > 0) {
        for (int i = 0; i < dataset->GetLayerCount(); ++i)
            source->d->names.emplace_back(dataset->GetLayer(i)->GetName());
        source->d->vector = std::make_shared<HOSharedDataset>(std::move(dataset), path.toStdString());
    } else {
        source->d->names.emplace_back(QFileInfo(path.toQString()).completeBaseName());
        source->d->raster = std::move(dataset);
    }
    return source;
}

HOString HODataSource::GetPath() const {
    return d->path;
}

std::vector<HOString> HODataSource::GetLayerNames() const {
    return d->names;
}

HORefPtr<HOLayer> HODataSource::OpenLayer(const HOString& name, HOString* error, const Progress& progress) {
    HOString reason;
    const int index = indexOf(name, &reason);
    HORefPtr<HOLayer> layer = index < 0 ? nullptr : openLayer(index, &reason, progress);
    if (!layer && error)
        *error = QCoreApplication::translate("HXObjects::HODataSource", "cannot open '%1': %2")
                     .arg(QString::fromUtf8(d->path.c_str()), QString::fromUtf8(reason.c_str()));
    return layer;
}

int HODataSource::indexOf(const HOString& name, HOString* reason) const {
    const auto found = std::find(d->names.begin(), d->names.end(), name);
    if (found != d->names.end()) return int(found - d->names.begin());
    *reason = QCoreApplication::translate("HXObjects::HODataSource", "it has no layer named '%1'")
                  .arg(QString::fromUtf8(name.c_str()));
    return -1;
}

std::vector<HORefPtr<HOLayer>> HODataSource::OpenLayers(HOString* error, const Progress& progress) {
    std::vector<HORefPtr<HOLayer>> layers;
    QStringList failures;
    const double count = double(d->names.size());
    bool going = true;
    for (int i = 0; going && i < int(d->names.size()); ++i) {
        HOString reason;
        const Progress share = [&](double done) { return going = !progress || progress((i + done) / count); };
        if (HORefPtr<HOLayer> layer = openLayer(i, &reason, progress ? share : Progress()))
            layers.push_back(layer);
        else if (going)
            failures << QStringLiteral("cannot open layer '%1' of '%2': %3")
                            .arg(d->names[std::size_t(i)].toQString(), d->path.toQString(),
                                 reason.toQString());
        if (going && progress) going = progress((i + 1) / count);
    }
    if (!going) layers.clear();
    if (error) *error = HOString(failures.join('\n'));
    return layers;
}

HORefPtr<HOLayer> HODataSource::openLayer(int index, HOString* reason, const Progress& progress) {
    HORefPtr<HOLayer> layer;
    if (d->vector) {
        layer = HOFeatureLayerLoader::Load(d->vector, index, reason, progress).get();
    } else {
        // The first raster layer takes the dataset opened for listing; a second one opens its own.
        GDALDatasetUniquePtr dataset =
            d->raster ? std::move(d->raster) : HOGdalOpener::Open(d->path.toStdString(), reason);
        if (dataset) layer = HORasterLayerLoader::Load(std::move(dataset), reason).get();
    }
    if (!layer) return nullptr;
    layer->SetSource(d->names.size() > 1 ? HOString(d->path.toQString() +
                                                    "|layername=" + d->names[std::size_t(index)].toQString())
                                         : d->path);
    return layer;
}

}  // namespace HXObjects
