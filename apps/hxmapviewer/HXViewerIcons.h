#pragma once
// HXViewerIcons: the tool-bar icons the theme has no image for, drawn at any size.
#include <QIcon>

class HXViewerIcons {
public:
    static QIcon pan();
    static QIcon select();
};
