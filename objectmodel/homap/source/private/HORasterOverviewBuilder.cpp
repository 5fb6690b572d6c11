#include "source/private/HORasterOverviewBuilder.h"

#include <gdal_priv.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <vector>

namespace HXObjects {

namespace {

const char* const copyName = "raster.vrt";  // its overviews go into raster.vrt.ovr next to it
constexpr int smallestSide = 256;           // the coarsest overview is at most this wide

// Overview options for this thread only: compressed and sparse, so empty areas cost nothing.
class OverviewOptions {
public:
    OverviewOptions() {
        for (const auto& option : options) CPLSetThreadLocalConfigOption(option.first, option.second);
    }
    ~OverviewOptions() {
        for (const auto& option : options) CPLSetThreadLocalConfigOption(option.first, nullptr);
    }

private:
    static constexpr std::pair<const char*, const char*> options[] = {
        {"COMPRESS_OVERVIEW", "DEFLATE"}, {"SPARSE_OK_OVERVIEW", "YES"}, {"BIGTIFF_OVERVIEW", "IF_SAFER"}};
};

}  // namespace

HORasterOverviewBuilder::HORasterOverviewBuilder(const std::string& source, bool nearest,
                                                 ProgressCallback progress, DoneCallback done)
    : m_source(source), m_nearest(nearest), m_onProgress(std::move(progress)), m_onDone(std::move(done)) {}

HORasterOverviewBuilder::~HORasterOverviewBuilder() {
    m_cancel.store(true);
    if (m_thread.joinable()) m_thread.join();
}

std::string HORasterOverviewBuilder::Cached(const std::string& source) {
    const QString folder = cacheFolder(source);
    const QString copy = QDir(folder).filePath(copyName);
    return !folder.isEmpty() && QFileInfo::exists(copy + ".ovr") ? copy.toStdString() : std::string();
}

void HORasterOverviewBuilder::Start() {
    std::call_once(m_started, [this] {
        if (cacheFolder(m_source).isEmpty()) return;  // not a local file: nowhere to name it after
        m_progress.store(0);
        m_thread = std::thread([this] { run(); });
    });
}

QString HORasterOverviewBuilder::cacheFolder(const std::string& source) {
    const QFileInfo file(QString::fromStdString(source));
    if (!file.isFile()) return QString();
    const QString key = file.absoluteFilePath() + '\n' + QString::number(file.size()) + '\n' +
                        QString::number(file.lastModified().toMSecsSinceEpoch());
    const QString hash = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha1).toHex();
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + "/overviews/" + hash;
}

void HORasterOverviewBuilder::run() {
    const QString folder = cacheFolder(m_source);
    // Built under another name and renamed when complete: a folder with the final name is whole.
    const QString part = folder + ".part";
    QDir(part).removeRecursively();
    if (!QDir().mkpath(part) || !build(part) || m_cancel.load() || !QDir().rename(part, folder)) {
        QDir(part).removeRecursively();
        m_progress.store(-1);
        return;
    }
    m_progress.store(1);
    m_onDone(QDir(folder).filePath(copyName).toStdString());
}

bool HORasterOverviewBuilder::build(const QString& folder) {
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    OverviewOptions options;
    const std::string path = QFileInfo(QString::fromStdString(m_source)).absoluteFilePath().toStdString();
    GDALDatasetUniquePtr source(GDALDataset::Open(path.c_str(), GDAL_OF_RASTER | GDAL_OF_READONLY));
    GDALDriver* vrt = GetGDALDriverManager()->GetDriverByName("VRT");
    if (!source || !vrt) return false;
    const std::string copyPath = QDir(folder).filePath(copyName).toStdString();
    GDALDatasetUniquePtr copy(
        vrt->CreateCopy(copyPath.c_str(), source.get(), FALSE, nullptr, nullptr, nullptr));
    if (!copy) return false;
    std::vector<int> levels;
    const int side = std::max(copy->GetRasterXSize(), copy->GetRasterYSize());
    for (int factor = 2; levels.empty() || side / levels.back() > smallestSide; factor *= 2)
        levels.push_back(factor);
    return copy->BuildOverviews(m_nearest ? "NEAREST" : "AVERAGE", int(levels.size()), levels.data(), 0,
                                nullptr, advance, this, nullptr) == CE_None;
}

int CPL_STDCALL HORasterOverviewBuilder::advance(double done, const char*, void* data) {
    auto* builder = static_cast<HORasterOverviewBuilder*>(data);
    // Reported in whole percents: often enough for a progress bar, rarely enough to cost nothing.
    // 1 means the overviews are in use, which is only once the copy is in place.
    const double progress = std::min(done, 0.99);
    if (int(progress * 100) != int(builder->m_progress.load() * 100)) {
        builder->m_progress.store(progress);
        builder->m_onProgress(progress);
    }
    return !builder->m_cancel.load();
}

}  // namespace HXObjects
