#include "HXEditActions.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QStyle>
#include <QToolBar>
#include <QUndoStack>

#include "HOCMDPool.h"
#include "HOCallbackKey.h"
#include "HOElementClipboard.h"
#include "HOGraphicsLayer.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HXMapCanvas.h"

using namespace HXObjects;

HXEditActions::HXEditActions(HXMapCanvas* canvas, QActionGroup* tools, QWidget* parent)
    : QObject(parent),
      mCanvas(canvas),
      mMap(canvas->GetMapView() ? canvas->GetMapView()->GetMap() : nullptr),
      mTools(tools),
      mToolBar(new QToolBar(tr("Edit"), parent)),
      mMenu(new QMenu(tr("&Edit"), parent)) {
    mToolBar->setObjectName("editTools");
    if (HOMap* map = mMap.get()) {
        QAction* undo = map->GetUndoStack()->createUndoAction(this, tr("Undo"));
        QAction* redo = map->GetUndoStack()->createRedoAction(this, tr("Redo"));
        undo->setShortcut(QKeySequence::Undo);
        redo->setShortcut(QKeySequence::Redo);
        undo->setIcon(parent->style()->standardIcon(QStyle::SP_ArrowBack));
        redo->setIcon(parent->style()->standardIcon(QStyle::SP_ArrowForward));
        for (QAction* action : {undo, redo}) {
            mMenu->addAction(action);
            mToolBar->addAction(action);
        }
        connect(map->GetUndoStack(), &QUndoStack::indexChanged, this, &HXEditActions::updateEnabled);
        HOBindMember(map->GetGraphicsLayer()->ElementsChangedSignal, this, &HXEditActions::onElementsChanged);
    }
    mMenu->addSeparator();
    mToolBar->addSeparator();
    // The canvas answers these keys itself; the menu only shows them.
    mCut = addCommand(tr("Cu&t"), "Ctrl+X", "HXObjects::HOToolCutElement");
    mCopy = addCommand(tr("&Copy"), "Ctrl+C", "HXObjects::HOCmdCopyElement");
    mPaste = addCommand(tr("&Paste"), "Ctrl+V", "HXObjects::HOCmdPasteElement");
    mDelete = addCommand(tr("&Delete"), "Del", "HXObjects::HOCmdDeleteElement");
    mMenu->addSeparator();
    mToolBar->addSeparator();
    addTool(tr("Line"), "L", "HXObjects::HOCmdDigitizeLine");
    addTool(tr("Polygon"), "G", "HXObjects::HOCmdDigitizePolygon");
    addTool(tr("Double line"), "D", "HXObjects::HOToolDoubleLine");
    addTool(tr("Control point"), "C", "HXObjects::HOToolAddControlPoint");
    addTool(tr("Distance"), "M", "HXObjects::HOToolMeasureDistance");
    addTool(tr("Area"), "A", "HXObjects::HOToolMeasureArea");
    connect(QApplication::clipboard(), &QClipboard::dataChanged, this, &HXEditActions::updateEnabled);
    updateEnabled();
}

HXEditActions::~HXEditActions() {
    if (HOMap* map = mMap.get()) {
        disconnect(map->GetUndoStack(), nullptr, this, nullptr);
        HOUnbindMember(map->GetGraphicsLayer()->ElementsChangedSignal, this,
                       &HXEditActions::onElementsChanged);
    }
}

QAction* HXEditActions::addCommand(const QString& text, const QString& keys, const char* tool) {
    const QString plain = QString(text).remove('&');
    QAction* action = mMenu->addAction(text + '\t' + QKeySequence(keys).toString(QKeySequence::NativeText));
    action->setIconText(plain);
    action->setToolTip(QString("%1 (%2)").arg(plain, keys));
    mToolBar->addAction(action);
    connect(action, &QAction::triggered, this,
            [this, tool] { mCanvas->setMapTool(HOCMDPool::GetInstance()->GetTool(tool)); });
    return action;
}

void HXEditActions::addTool(const QString& text, const QString& key, const char* tool) {
    QAction* action = mMenu->addAction(text);
    action->setCheckable(true);
    action->setShortcut(QKeySequence(key));
    action->setToolTip(QString("%1 (%2)").arg(text, key));
    action->setData(QString(tool));
    mTools->addAction(action);
    mToolBar->addAction(action);
    connect(action, &QAction::triggered, this, [this, tool] { mCanvas->setMapTool(HOString(tool)); });
}

void HXEditActions::updateEnabled() {
    HOMap* map = mMap.get();
    const bool selected = map && !map->GetGraphicsLayer()->GetSelectedIds().empty();
    mCut->setEnabled(selected);
    mCopy->setEnabled(selected);
    mDelete->setEnabled(selected);
    mPaste->setEnabled(map && !HOElementClipboard::Take().empty());
}

// Editors tell of changes on the GUI thread, but a layer may be told from elsewhere: look again there.
void HXEditActions::onElementsChanged(void*, HOEvent*) {
    QMetaObject::invokeMethod(this, &HXEditActions::updateEnabled, Qt::QueuedConnection);
}
