#include "HOTextElement.h"

#include <QPainter>

namespace HXObjects {

HOTextElement::HOTextElement() : HOPageLayoutBaseElement(HOElementText), m_alignment(Qt::AlignCenter) {}

void HOTextElement::draw(QPainter& painter, const HOPageRenderContext& context) {
    HOPageText::Draw(painter, context, context.ToDevice(get_bounds()), m_text, m_style,
                     m_alignment | Qt::TextWordWrap);
}

QJsonObject HOTextElement::properties() const {
    return {{"text", m_text},
            {"points", m_style.points},
            {"bold", m_style.bold},
            {"color", m_style.color.name(QColor::HexArgb)},
            {"alignment", m_alignment}};
}

void HOTextElement::set_properties(const QJsonObject& json) {
    m_text = json.value("text").toString(m_text);
    m_style.points = json.value("points").toDouble(m_style.points);
    m_style.bold = json.value("bold").toBool(m_style.bold);
    const QColor color(json.value("color").toString());
    if (color.isValid()) m_style.color = color;
    m_alignment = json.value("alignment").toInt(m_alignment);
}

HORefPtr<HOPageLayoutBaseElement> HOTextElement::create() const {
    return HORefPtr<HOPageLayoutBaseElement>(new HOTextElement);
}

}  // namespace HXObjects
