#pragma once
// HXColorBtn: a tool button that shows a colour as a swatch and lets the user pick another from a
// colour dialog on click. Colours are opaque: getColor() returns the RGB value with alpha 0xff.
// Parent-owned like any widget.
#include <QColor>
#include <QToolButton>

#include "HXExport.h"

class HX_EXPORT HXColorBtn : public QToolButton {
    Q_OBJECT
public:
    explicit HXColorBtn(QWidget* parent = nullptr);

    // Shows the colour; emits colorChanged when it differs from the current one. Invalid colours
    // are ignored.
    void setColor(const QColor& color);
    QRgb getColor() const { return mColor.rgb(); }

signals:
    void colorChanged(QColor color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void chooseColor();

    QColor mColor = Qt::black;
};
