#pragma once
// HXMapSettings: how a map is to be drawn — output size in pixels, visible extent, magnification,
// rotation and rendering flags. A plain value the canvas keeps and hands to whoever renders.
//
// Magnification enlarges the drawing without changing the map scale: with a factor of 2 the same
// output shows half the extent. setExtent(rect, false) takes an unmagnified extent and applies the
// factor; setExtent(rect, true) takes the extent as it is to be shown.
#include <QFlags>
#include <QSize>

#include "HORect.h"
#include "HXExport.h"

class HX_EXPORT HXMapSettings {
public:
    enum Flag {
        Antialiasing = 0x1,  // smooth edges of lines, fills and text
    };
    Q_DECLARE_FLAGS(Flags, Flag)

    HXMapSettings() = default;

    Flags flags() const { return mFlags; }
    void setFlags(Flags flags) { mFlags = flags; }
    bool testFlag(Flag flag) const { return mFlags.testFlag(flag); }
    void setFlag(Flag flag, bool on = true) { mFlags.setFlag(flag, on); }

    double magnificationFactor() const { return mMagnification; }
    // Ignores factors that are not finite and positive; keeps the extent's centre and scales its
    // size by old / new factor.
    void setMagnificationFactor(double factor);

    // Clockwise, in degrees. Non-finite values are ignored.
    double rotation() const { return mRotation; }
    void setRotation(double degrees);

    QSize outputSize() const { return mOutputSize; }
    void setOutputSize(QSize size) { mOutputSize = size; }

    HXObjects::HORect extent() const { return mExtent; }
    void setExtent(const HXObjects::HORect& extent, bool magnified = true);

    // True when there is something to draw: a non-empty output size and a non-empty extent.
    bool hasValidSettings() const;

private:
    Flags mFlags = Antialiasing;
    double mMagnification = 1.0;
    double mRotation = 0.0;
    QSize mOutputSize;
    HXObjects::HORect mExtent;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(HXMapSettings::Flags)
