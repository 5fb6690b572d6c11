#pragma once
// HXEditActions: the viewer's Edit tool bar and menu: Undo and Redo of the map's undo stack (their
// texts name the command, "Undo Add polygon"), Cut, Copy, Paste and Delete of graphic elements
// (enabled only while they can act: a selection to cut, copy or delete, elements or WKT on the
// clipboard to paste), and the editing and measuring tools with their shortcuts, checkable in the
// window's group of map tools. Owned by the window.
#include <QObject>

#include "HOEvent.h"
#include "HOMap.h"

class HXMapCanvas;
class QAction;
class QActionGroup;
class QMenu;
class QToolBar;
class QWidget;

class HXEditActions : public QObject {
    Q_OBJECT
public:
    // `tools`: the window's exclusive group of tool actions, which the editing tools join.
    HXEditActions(HXMapCanvas* canvas, QActionGroup* tools, QWidget* parent);
    ~HXEditActions() override;

    QToolBar* toolBar() const { return mToolBar; }
    QMenu* menu() const { return mMenu; }
    QAction* cutAction() const { return mCut; }
    QAction* copyAction() const { return mCopy; }
    QAction* pasteAction() const { return mPaste; }
    QAction* deleteAction() const { return mDelete; }

    // Re-reads whether the clipboard actions can act.
    void updateEnabled();

private:
    QAction* addCommand(const QString& text, const QString& keys, const char* tool);
    void addTool(const QString& text, const QString& key, const char* tool);
    void onElementsChanged(void* sender, HXObjects::HOEvent* event);

    HXMapCanvas* mCanvas;
    // Held: the canvas (and its view) may go before this object does.
    HXObjects::HORefPtr<HXObjects::HOMap> mMap;
    QActionGroup* mTools;
    QToolBar* mToolBar;
    QMenu* mMenu;
    QAction* mCut = nullptr;
    QAction* mCopy = nullptr;
    QAction* mPaste = nullptr;
    QAction* mDelete = nullptr;
};
