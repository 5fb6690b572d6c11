#include "HXCommandDock.h"

#include "HOTool.h"
#include "HXMapCanvas.h"
#include "HXViewerTools.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>

using namespace HXObjects;

HXCommandDock::HXCommandDock(HXMapCanvas* canvas, QWidget* parent)
    : QDockWidget(tr("Command line"), parent), mCanvas(canvas) {
    setObjectName("commandDock");
    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(4, 2, 4, 2);
    mLog = new QPlainTextEdit(body);
    mLog->setReadOnly(true);
    mLog->setMaximumBlockCount(500);
    auto* row = new QHBoxLayout;
    mPrompt = new QLabel(tr("Command:"), body);
    mEdit = new QLineEdit(body);
    mEdit->setPlaceholderText(
        tr("pan, zoomin, zoomout, select, identify, or a command for the current tool"));
    row->addWidget(mPrompt);
    row->addWidget(mEdit, 1);
    layout->addWidget(mLog, 1);
    layout->addLayout(row);
    setWidget(body);
    connect(mEdit, &QLineEdit::returnPressed, this, &HXCommandDock::runCommand);
    mEdit->installEventFilter(this);
}

// A command is one short line: Home belongs to the map (full extent) even while typing, as it does
// everywhere else in the window.
bool HXCommandDock::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mEdit && event->type() == QEvent::ShortcutOverride) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Home && key->modifiers() == Qt::NoModifier) {
            key->ignore();  // not overridden: the window's shortcut runs
            return true;
        }
    }
    return QDockWidget::eventFilter(watched, event);
}

void HXCommandDock::SetEditInfo(HOString text) {
    mEdit->setText(text.toQString());
}

void HXCommandDock::AddNotice(HOString text) {
    mLog->appendPlainText(text.toQString());
}

void HXCommandDock::ShowView(HOString text, HOTool* tool, bool show) {
    mTool = tool;
    if (!text.isEmpty()) mPrompt->setText(text.toQString());
    setVisible(show);
}

void HXCommandDock::SetViewFocus(bool focus) {
    if (focus && isVisible()) mEdit->setFocus(Qt::OtherFocusReason);
}

HOTool* HXCommandDock::GetCurrentTool() {
    return mTool ? mTool : mCanvas->getMapTool();
}

QString HXCommandDock::log() const {
    return mLog->toPlainText();
}

void HXCommandDock::runCommand() {
    const QString command = mEdit->text().trimmed();
    mEdit->clear();
    if (command.isEmpty()) return;
    mLog->appendPlainText("> " + command);
    const QString toolName = HXViewerTools::classNameForCommand(command);
    if (!toolName.isEmpty()) {
        mCanvas->setMapTool(HOString(toolName));
        return;
    }
    if (HOTool* tool = GetCurrentTool()) {
        tool->OnCommand(HOString(command));
        return;
    }
    mLog->appendPlainText(tr("Unknown command: %1").arg(command));
}
