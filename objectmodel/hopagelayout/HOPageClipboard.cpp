#include "HOPageClipboard.h"

#include <QJsonDocument>
#include <QMimeData>
#include <QStringList>

#include "HOGraphicsContainer.h"
#include "HOLayoutDocument.h"

namespace HXObjects {

const char* const HOPageClipboard::kMimeType = "application/x-hxmapcontrols-page-elements";

namespace {

QString outlineWkt(const HORect& b) {
    return QString("POLYGON ((%1 %3, %2 %3, %2 %4, %1 %4, %1 %3))")
        .arg(b.minx)
        .arg(b.maxx)
        .arg(b.miny)
        .arg(b.maxy);
}

}  // namespace

QMimeData* HOPageClipboard::Copy(const HOGraphicsContainer& container) {
    const auto selected = container.GetSelectedElements(true);
    if (selected.empty()) return nullptr;
    QStringList outlines;
    for (const auto& element : selected) outlines << outlineWkt(element->get_bounds());
    auto* data = new QMimeData;
    data->setData(kMimeType,
                  QJsonDocument(HOLayoutDocument::ElementsToJson(selected, QDir::root())).toJson());
    data->setText(outlines.size() == 1 ? outlines[0] : "GEOMETRYCOLLECTION (" + outlines.join(", ") + ")");
    return data;
}

std::vector<HORefPtr<HOPageLayoutBaseElement>> HOPageClipboard::Paste(HOGraphicsContainer& container,
                                                                      const QMimeData& data) {
    HOLayoutDocument::Contents contents;
    QString error;
    const QJsonArray list = QJsonDocument::fromJson(data.data(kMimeType)).array();
    if (list.isEmpty() || !HOLayoutDocument::ElementsFromJson(list, QDir::root(), &contents, &error))
        return {};
    container.ClearSelection();
    for (const auto& element : contents.elements) {
        element->set_off_x(element->get_off_x() + kPasteOffset);
        element->set_off_y(element->get_off_y() - kPasteOffset);
        container.AddElement(element);
        container.SelectElement(element, true);
    }
    return contents.elements;
}

int HOPageClipboard::DeleteSelected(HOGraphicsContainer& container) {
    const auto selected = container.GetSelectedElements(true);
    for (const auto& element : selected) container.RemoveElement(element);
    return int(selected.size());
}

}  // namespace HXObjects
