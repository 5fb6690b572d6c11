#pragma once
// HORecordingTool: a tool of any class name, optionally a one-shot command, that records the calls
// the canvas makes of it. Register it in the command pool for the canvas to find it by name.
#include <QStringList>

#include "HOTool.h"

class HORecordingTool : public HXObjects::HOTool {
public:
    explicit HORecordingTool(const char* name, bool oneShot = false) : m_name(name), m_oneShot(oneShot) {}

    QStringList calls;

    HXObjects::HOString GetClassName() override { return m_name; }
    bool IsOneShot() override { return m_oneShot; }
    void Activate() override {
        HOTool::Activate();
        calls << "Activate";
    }
    void Deactivate() override {
        HOTool::Deactivate();
        calls << "Deactivate";
    }
    void SetToolBuddy(HXObjects::HOToolBuddy* buddy) override {
        HOTool::SetToolBuddy(buddy);
        calls << "SetToolBuddy";
    }
    void ClearToolPaint() override { calls << "ClearToolPaint"; }
    void CancelPoint() override { calls << "CancelPoint"; }
    void OnCommand(const HXObjects::HOString& command) override {
        calls << "OnCommand " + command.toQString();
    }
    bool AcceptsPointInput() override { return acceptsPoints; }

    bool acceptsPoints = true;

private:
    HXObjects::HOString m_name;
    bool m_oneShot;
};
