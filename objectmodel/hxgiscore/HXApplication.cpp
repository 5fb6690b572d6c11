#include "HXApplication.h"

#include <QFile>
#include <QPainter>
#include <QStandardPaths>
#include <QSvgRenderer>

// Resources in a static library are linked only when something refers to them.
static void InitThemeResource() {
    Q_INIT_RESOURCE(hxgistheme);
}

namespace {

const QString kThemeRoot = QStringLiteral(":/images/themes/default/");

bool IsSvg(const QString& path) {
    return path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive);
}

QPixmap RenderSvg(const QString& path, QSize size) {
    QSvgRenderer renderer(path);
    if (!renderer.isValid()) return QPixmap();
    if (!size.isValid()) size = renderer.defaultSize();
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

// The sizes at which widgets ask for icons; QIcon scales between them.
QIcon SvgIcon(const QString& path) {
    QIcon icon;
    for (int side : {16, 22, 24, 32, 48, 64}) icon.addPixmap(RenderSvg(path, QSize(side, side)));
    return icon;
}

}  // namespace

QString HXApplication::getThemeFilePath(const QString& name) {
    static const bool initialised = (InitThemeResource(), true);
    Q_UNUSED(initialised)
    QString relative = name;
    while (relative.startsWith(QLatin1Char('/'))) relative.remove(0, 1);
    const QString path = kThemeRoot + relative;
    return !relative.isEmpty() && QFile::exists(path) ? path : QString();
}

QIcon HXApplication::getThemeIcon(const QString& name) {
    const QString path = getThemeFilePath(name);
    if (path.isEmpty()) return QIcon();
    return IsSvg(path) ? SvgIcon(path) : QIcon(path);
}

QPixmap HXApplication::getThemePixmap(const QString& name) {
    const QString path = getThemeFilePath(name);
    if (path.isEmpty()) return QPixmap();
    return IsSvg(path) ? RenderSvg(path, QSize()) : QPixmap(path);
}

QString HXApplication::hxgisSettingsFilePath() {
    const QString overridden = qEnvironmentVariable("HXGIS_SETTINGS_FILE");
    if (!overridden.isEmpty()) return overridden;
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/hxgis/hxgis.ini");
}
