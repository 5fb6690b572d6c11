#pragma once
// HOTextElement: a line or block of text on the page (a title, a note), in points, aligned in its box.
#include <QString>

#include "HOPageLayoutBaseElement.h"
#include "HOPageText.h"

namespace HXObjects {

class HOTextElement : public HOPageLayoutBaseElement {
public:
    HOTextElement();

    QString get_text() const { return m_text; }
    void set_text(const QString& text) { m_text = text; }
    HOPageText::Style get_style() const { return m_style; }
    void set_style(const HOPageText::Style& style) { m_style = style; }
    // Qt alignment flags.
    int get_alignment() const { return m_alignment; }
    void set_alignment(int flags) { m_alignment = flags; }

    void draw(QPainter& painter, const HOPageRenderContext& context) override;
    QJsonObject properties() const override;
    void set_properties(const QJsonObject& json) override;

protected:
    ~HOTextElement() override = default;
    HORefPtr<HOPageLayoutBaseElement> create() const override;

private:
    QString m_text;
    HOPageText::Style m_style;
    int m_alignment;
};

}  // namespace HXObjects
