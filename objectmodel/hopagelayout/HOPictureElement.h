#pragma once
// HOPictureElement: an image file placed on the page (a logo, a photograph), fitted into its box with
// its proportions kept. A file that cannot be read draws a crossed box with its name. The document
// keeps the path relative to itself.
#include <QImage>
#include <QString>

#include "HOPageLayoutBaseElement.h"

namespace HXObjects {

class HOPictureElement : public HOPageLayoutBaseElement {
public:
    HOPictureElement();

    QString get_path() const { return m_path; }
    // Reads the image now; false when it cannot be read (the path is kept and drawn as missing).
    bool set_path(const QString& path);

    void draw(QPainter& painter, const HOPageRenderContext& context) override;

protected:
    ~HOPictureElement() override = default;
    HORefPtr<HOPageLayoutBaseElement> create() const override;

private:
    QString m_path;
    QImage m_image;
};

}  // namespace HXObjects
