#pragma once
// HOLegendElement: the legend of one data frame, made from its map each time it draws: a title, then
// one row per visible layer, top layer first, with a sample of the layer's style and its name.
#include <QString>

#include "HOMapSurroundElement.h"

namespace HXObjects {

class HOLegendElement : public HOMapSurroundElement {
public:
    HOLegendElement();

    QString get_title() const { return m_title; }
    void set_title(const QString& title) { m_title = title; }
    void draw(QPainter& painter, const HOPageRenderContext& context) override;
    QJsonObject properties() const override { return {{"title", m_title}}; }
    void set_properties(const QJsonObject& json) override { m_title = json.value("title").toString(m_title); }

protected:
    ~HOLegendElement() override = default;
    HORefPtr<HOPageLayoutBaseElement> create() const override { return createFor<HOLegendElement>(); }

private:
    QString m_title;
};

}  // namespace HXObjects
