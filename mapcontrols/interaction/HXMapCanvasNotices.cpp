// HXMapCanvas as a tool's voice: tips beside the mouse, notices that run across the map, the host's
// command line, file prompts that remember the last directory, and the document-changed flag.
#include <QFileDialog>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSettings>
#include <QTextCodec>
#include <QTime>

#include "HOCommandControl.h"
#include "HXApplication.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXTooltip.h"

using namespace HXObjects;

namespace {

const QString kLastOpenPathKey = QStringLiteral("history/lastOpenFilePath");

// The directory a file prompt starts in. Remembered "HXSDE30_" entries name database connections,
// not directories. The remembered directory is used only when the caller passes a directory of its
// own; an empty `dir` starts at the toolkit's default.
QString StartDirectory(const QSettings& settings, const HOString& dir) {
    QString remembered = settings.value(kLastOpenPathKey).toString();
    if (remembered.startsWith(QLatin1String("HXSDE30_"))) remembered.clear();
    return dir.isEmpty() ? QString() : remembered;
}

// Each notice gets its own height; the generator is seeded afresh from the clock every time.
double NoticeHeightFraction() {
    const QTime now = QTime::currentTime();
    QRandomGenerator generator(static_cast<quint32>(now.second() * 1000 + now.msec()));
    const quint32 r = generator.generate();
    return (r % 100) / 100.0 * 0.4 + 0.1;
}

}  // namespace

void HXMapCanvas::ShowTip(int x, int y, HOString text) {
    if (text.isEmpty()) {
        if (mTooltip) mTooltip->hide();
        return;
    }
    const QPoint global = mapToGlobal(QPoint(x, y));
    if (!mTooltip) mTooltip = new HXTooltip(this);
    mTooltip->showTip(global, text.toQString());
}

void HXMapCanvas::ShowMessage(HOString text) {
    if (!mMapWidget) return;
    auto* item = new HXNoticeItem;
    item->text = text.toQString();
    item->color = QColor(0, 0, 255, 255);
    item->x = 0;
    item->fraction = NoticeHeightFraction();
    std::lock_guard<std::mutex> lock(mMapWidget->mNoticeMutex);
    mMapWidget->mNotices.append(item);
}

void HXMapCanvas::AddNoticeInfo(HOString text) {
    if (mCommandControl) mCommandControl->AddNotice(text);
}

void HXMapCanvas::SetCmdEditInfo(HOString text) {
    if (mCommandControl) mCommandControl->SetEditInfo(text);
}

void HXMapCanvas::ShowCommandView(HOString text, HOTool* tool, bool show) {
    if (mCommandControl) mCommandControl->ShowView(text, tool, show);
}

void HXMapCanvas::SetCommandViewFocus() {
    if (mCommandControl) mCommandControl->SetViewFocus(true);
}

HOString HXMapCanvas::getOpenFileName(const HOString& caption, const HOString& dir, const HOString& filter) {
    QSettings settings(HXApplication::hxgisSettingsFilePath(), QSettings::IniFormat);
    const QString start = StartDirectory(settings, dir);
    const QString path = QFileDialog::getOpenFileName(this, caption.toQString(), start, filter.toQString(),
                                                      nullptr, QFileDialog::DontUseNativeDialog);
    const QFileInfo chosen(path);
    const QString directory = chosen.absolutePath();
    if (chosen.isFile() && !directory.isEmpty()) settings.setValue(kLastOpenPathKey, directory);
    return HOString(path.toUtf8().toStdString());
}

std::vector<HOString> HXMapCanvas::getOpenFileNames(const HOString& caption, const HOString& dir,
                                                    const HOString& filter) {
    QSettings settings(HXApplication::hxgisSettingsFilePath(), QSettings::IniFormat);
    const QString start = StartDirectory(settings, dir);
    const QStringList paths = QFileDialog::getOpenFileNames(
        this, caption.toQString(), start, filter.toQString(), nullptr, QFileDialog::DontUseNativeDialog);
    // Unlike the single-file prompt, the start directory itself is remembered.
    if (!paths.isEmpty() && !start.isEmpty()) settings.setValue(kLastOpenPathKey, start);
    std::vector<HOString> result;
    result.reserve(paths.size());
    for (const QString& path : paths) result.emplace_back(path);
    return result;
}

HOString HXMapCanvas::GetCharsetEncoding() {
    return HOString(QString::fromLatin1(QTextCodec::codecForLocale()->name()));
}

bool HXMapCanvas::DocStateChanged() const {
    return mDocStateChanged;
}
void HXMapCanvas::SetDocStateChanged() {
    mDocStateChanged = true;
}
void HXMapCanvas::ResetDocState() {
    mDocStateChanged = false;
}
