#include "source/private/HORasterOverviewBuilder.h"

#include <gdal_priv.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QThreadPool>
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

// One build at a time (it reads the whole raster); its destructor, at exit, waits for builds
// already cancelled, before GDAL itself is torn down.
QThreadPool& buildThreads() {
    static QThreadPool pool;
    pool.setMaxThreadCount(1);
    return pool;
}

QString cacheFolder(const std::string& source) {
    const QFileInfo file(QString::fromStdString(source));
    if (!file.isFile()) return QString();
    const QString key = file.absoluteFilePath() + '\n' + QString::number(file.size()) + '\n' +
                        QString::number(file.lastModified().toMSecsSinceEpoch());
    const QString hash = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha1).toHex();
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + "/overviews/" + hash;
}

}  // namespace

class HORasterOverviewBuilder::Job {
public:
    Job(const std::string& source, bool nearest, ProgressCallback progress, DoneCallback done)
        : m_source(source),
          m_nearest(nearest),
          m_onProgress(std::move(progress)),
          m_onDone(std::move(done)) {}

    // Where the copy goes; empty when the raster is not a local file (nowhere to name it after).
    QString Folder() const { return cacheFolder(m_source); }
    void Run(const QString& folder);
    // No more callbacks after this returns; the build stops at its next progress report.
    void Cancel();
    double Progress() const { return m_progress.load(); }
    void Started() { m_progress.store(0); }

private:
    bool build(const QString& folder);
    static int CPL_STDCALL advance(double done, const char*, void* job);

    const std::string m_source;
    const bool m_nearest;
    std::atomic<bool> m_cancel{false};
    std::atomic<double> m_progress{-1};
    std::mutex m_callbackMutex;  // held while a callback runs, so Cancel() knows none still does
    ProgressCallback m_onProgress;
    DoneCallback m_onDone;
};

void HORasterOverviewBuilder::Job::Run(const QString& folder) {
    // Built under another name and renamed when complete: a folder with the final name is whole.
    const QString part = folder + ".part";
    if (m_cancel.load()) return;  // cancelled while waiting for its turn
    QDir(part).removeRecursively();
    if (!QDir().mkpath(part) || !build(part) || m_cancel.load() || !QDir().rename(part, folder)) {
        QDir(part).removeRecursively();
        m_progress.store(-1);
        return;
    }
    std::lock_guard<std::mutex> lock(m_callbackMutex);
    if (m_cancel.load()) return;
    m_progress.store(1);
    m_onDone(QDir(folder).filePath(copyName).toStdString());
}

void HORasterOverviewBuilder::Job::Cancel() {
    m_cancel.store(true);
    std::lock_guard<std::mutex> lock(m_callbackMutex);
    m_onProgress = nullptr;
    m_onDone = nullptr;
}

bool HORasterOverviewBuilder::Job::build(const QString& folder) {
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

int CPL_STDCALL HORasterOverviewBuilder::Job::advance(double done, const char*, void* data) {
    auto* job = static_cast<Job*>(data);
    // Reported in whole percents: often enough for a progress bar, rarely enough to cost nothing.
    // 1 means the overviews are in use, which is only once the copy is in place.
    const double progress = std::min(done, 0.99);
    if (int(progress * 100) != int(job->m_progress.load() * 100)) {
        job->m_progress.store(progress);
        std::lock_guard<std::mutex> lock(job->m_callbackMutex);
        if (job->m_onProgress) job->m_onProgress(progress);
    }
    return !job->m_cancel.load();
}

HORasterOverviewBuilder::HORasterOverviewBuilder(const std::string& source, bool nearest,
                                                 ProgressCallback progress, DoneCallback done)
    : m_job(std::make_shared<Job>(source, nearest, std::move(progress), std::move(done))) {}

HORasterOverviewBuilder::~HORasterOverviewBuilder() {
    m_job->Cancel();
}

std::string HORasterOverviewBuilder::Cached(const std::string& source) {
    const QString folder = cacheFolder(source);
    const QString copy = QDir(folder).filePath(copyName);
    return !folder.isEmpty() && QFileInfo::exists(copy + ".ovr") ? copy.toStdString() : std::string();
}

void HORasterOverviewBuilder::Start() {
    std::call_once(m_started, [this] {
        const QString folder = m_job->Folder();
        if (folder.isEmpty()) return;
        m_job->Started();
        std::shared_ptr<Job> job = m_job;
        buildThreads().start([job, folder] { job->Run(folder); });
    });
}

double HORasterOverviewBuilder::Progress() const {
    return m_job->Progress();
}

}  // namespace HXObjects
