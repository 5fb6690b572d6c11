#include "HXMapSettings.h"

#include <cmath>

namespace {

HXObjects::HORect ScaledAboutCentre(const HXObjects::HORect& r, double factor) {
    const HXObjects::HOPoint c = r.Center();
    const double halfWidth = r.Width() * factor / 2.0;
    const double halfHeight = r.Height() * factor / 2.0;
    return {c.x - halfWidth, c.x + halfWidth, c.y - halfHeight, c.y + halfHeight};
}

}  // namespace

void HXMapSettings::setMagnificationFactor(double factor) {
    if (!std::isfinite(factor) || factor <= 0.0) return;
    if (!mExtent.IsEmpty()) mExtent = ScaledAboutCentre(mExtent, mMagnification / factor);
    mMagnification = factor;
}

void HXMapSettings::setRotation(double degrees) {
    if (std::isfinite(degrees)) mRotation = degrees;
}

void HXMapSettings::setExtent(const HXObjects::HORect& extent, bool magnified) {
    mExtent = magnified || extent.IsEmpty() ? extent : ScaledAboutCentre(extent, 1.0 / mMagnification);
}

bool HXMapSettings::hasValidSettings() const {
    return !mOutputSize.isEmpty() && !mExtent.IsEmpty();
}
