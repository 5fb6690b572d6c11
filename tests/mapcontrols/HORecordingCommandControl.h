#pragma once
// HORecordingCommandControl: a host command line that records what the canvas tells it.
#include <QStringList>

#include "HOCommandControl.h"

class HORecordingCommandControl : public HXObjects::HOCommandControl {
public:
    QStringList calls;
    HXObjects::HOTool* currentTool = nullptr;

    void SetEditInfo(HXObjects::HOString text) override { calls << "SetEditInfo " + text.toQString(); }
    void AddNotice(HXObjects::HOString text) override { calls << "AddNotice " + text.toQString(); }
    void ShowView(HXObjects::HOString text, HXObjects::HOTool*, bool show) override {
        calls << QString("ShowView %1 %2").arg(text.toQString()).arg(show);
    }
    void SetViewFocus(bool focus) override { calls << QString("SetViewFocus %1").arg(focus); }
    HXObjects::HOTool* GetCurrentTool() override { return currentTool; }
};
