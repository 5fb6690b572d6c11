#pragma once
// HXScaleComboBox: the editable scale box of the status bar. It holds a scale as a ratio (1:50 000
// is 0.00002; 0 means no scale), shows it as "1:n" or "n:1" with the locale's group separators,
// accepts typed scales as "1:n", "n" or a ratio, offers the preset scales of the settings file and
// opens its popup on the preset nearest to the current scale.
#include <QComboBox>
#include <QStringList>

#include "HXMapControlsExport.h"

class HXMAPCONTROLS_EXPORT HXScaleComboBox : public QComboBox {
    Q_OBJECT

public:
    explicit HXScaleComboBox(QWidget* parent = nullptr);

    double scale() const;
    // Shows the ratio; emits scaleChanged when it differs from the current one.
    void setScale(double scale);
    // Applies a typed scale; false (and nothing changes) when the text cannot be read.
    bool setScaleString(const QString& scaleTxt);
    void showPopup() override;

    static QString toString(double scale);
    static double toDouble(const QString& scaleString, bool* ok = nullptr);

signals:
    void scaleChanged(double scale);

public slots:
    // An empty list reads "Map/scales" from the settings file.
    void updateScales(const QStringList& scales);
    void updateScales();
    void setMinScale(double scale);
    void fixupScale();

private:
    double mScale = 1.0;
    double mMinScale = 0.0;
};
