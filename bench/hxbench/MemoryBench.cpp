#include "MemoryBench.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include "LayerBench.h"

using namespace HXObjects;

double MemoryBench::PeakHere(const QString& gpkg, const QString& layer, const QSize& size) {
    HORefPtr<HOFeatureLayer> opened =
        HODynamicCast<HOFeatureLayer>(OpenLayer(HOString(gpkg + QStringLiteral("|layername=") + layer)));
    if (!opened) return 0;
    LayerBench::UseThePeersStyle(opened);
    QImage image;
    LayerBench::Render(opened, LayerBench::Widened(opened->GetExtent(), size), size, 1, &image);
    // The high-water mark of this program's own memory: getrusage's figure would also count the
    // parent's from before the exec.
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    const QRegularExpressionMatch kib = QRegularExpression(QStringLiteral("VmHWM:\\s*(\\d+) kB"))
                                            .match(QString::fromLatin1(status.readAll()));
    return kib.hasMatch() ? kib.captured(1).toDouble() / 1024.0 : 0.0;
}

double MemoryBench::PeakInOwnProcess(const QString& gpkg, const QString& layer) {
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--data"), gpkg, QStringLiteral("--peak-memory"), layer});
    if (!child.waitForFinished(10 * 60 * 1000) || child.exitCode() != 0) return 0;
    return child.readAllStandardOutput().trimmed().toDouble();
}
