#include "HXCommandDock.h"

#include "HOTool.h"
#include "HXMapCanvas.h"
#include "HXViewerTools.h"

#include <QHBoxLayout>
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
    mEdit->setPlaceholderText(tr("pan, zoomin, zoomout, select, identify, or a command for the current tool"));
    row->addWidget(mPrompt);
    row->addWidget(mEdit, 1);
    layout->addWidget(mLog, 1);
    layout->addLayout(row);
    setWidget(body);
    connect(mEdit, &QLineEdit::returnPressed, this, &HXCommandDock::runCommand);
}

void HXCommandDock::SetEditInfo(HOString text) { mEdit->setText(text.toQString()); }

void HXCommandDock::AddNotice(HOString text) { mLog->appendPlainText(text.toQString()); }

void HXCommandDock::ShowView(HOString text, HOTool* tool, bool show) {
    mTool = tool;
    if (!text.isEmpty()) mPrompt->setText(text.toQString());
    setVisible(show);
}

void HXCommandDock::SetViewFocus(bool focus) {
    if (focus && isVisible()) mEdit->setFocus(Qt::OtherFocusReason);
}

HOTool* HXCommandDock::GetCurrentTool() { return mTool ? mTool : mCanvas->getMapTool(); }

QString HXCommandDock::log() const { return mLog->toPlainText(); }

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
