#pragma once
// HXCommandDock: the viewer's command line. It implements the object model's command-line control:
// tools write notices and prompts to it, and a typed command goes to the current tool (or names a
// tool to install: "pan", "zoomin", "zoomout", "select", "identify").
#include "HOCommandControl.h"

#include <QDockWidget>

class QLabel;
class QLineEdit;
class QPlainTextEdit;
class HXMapCanvas;

class HXCommandDock : public QDockWidget, public HXObjects::HOCommandControl {
    Q_OBJECT

public:
    HXCommandDock(HXMapCanvas* canvas, QWidget* parent);

    void SetEditInfo(HXObjects::HOString text) override;
    void AddNotice(HXObjects::HOString text) override;
    void ShowView(HXObjects::HOString text, HXObjects::HOTool* tool, bool show) override;
    void SetViewFocus(bool focus) override;
    HXObjects::HOTool* GetCurrentTool() override;

    QString log() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void runCommand();

    HXMapCanvas* mCanvas;
    HXObjects::HOTool* mTool = nullptr;
    QLabel* mPrompt;
    QLineEdit* mEdit;
    QPlainTextEdit* mLog;
};
