#include "HOLayoutDocument.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <map>

#include "HODataFrame.h"
#include "HOFileFunc.h"
#include "HOGraphicElement.h"
#include "HOLegendElement.h"
#include "HOMapDocument.h"
#include "HOMapView.h"
#include "HONorthArrowElement.h"
#include "HOPageLayoutView.h"
#include "HOPictureElement.h"
#include "HOScaleBarElement.h"
#include "HOTextElement.h"

namespace HXObjects {

namespace {

const char* const kFormat = "hxlayout";

// The texts of this file, translated in the context HXObjects::HOLayoutDocument.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(HXObjects::HOLayoutDocument)
};

const std::map<HOMapElementType, QString>& typeNames() {
    static const std::map<HOMapElementType, QString> names{
        {HOElementDataFrame, "dataframe"}, {HOElementText, "text"},
        {HOElementGraphic, "graphic"},     {HOElementLegend, "legend"},
        {HOElementScaleBar, "scalebar"},   {HOElementNorthArrow, "northarrow"},
        {HOElementPicture, "picture"}};
    return names;
}

HORefPtr<HOPageLayoutBaseElement> newElement(const QString& type) {
    if (type == "text") return new HOTextElement;
    if (type == "graphic") return new HOGraphicElement;
    if (type == "legend") return new HOLegendElement;
    if (type == "scalebar") return new HOScaleBarElement;
    if (type == "northarrow") return new HONorthArrowElement;
    if (type == "picture") return new HOPictureElement;
    return {};
}

QJsonObject pageToJson(const HOPageSetup& s) {
    return {{"paper", s.Paper()},
            {"width", s.Width()},
            {"height", s.Height()},
            {"landscape", s.IsLandscape()},
            {"margin", s.Margin()}};
}

bool pageFromJson(const QJsonObject& json, HOPageSetup* setup, QString* error) {
    const QString paper = json["paper"].toString();
    if (!setup->SetPaper(paper) &&
        !setup->SetCustomSize(json["width"].toDouble(), json["height"].toDouble(), error))
        return false;
    setup->SetLandscape(json["landscape"].toBool(setup->IsLandscape()));
    setup->SetMargin(json["margin"].toDouble(setup->Margin()));
    return true;
}

template <class T>
int indexOf(const std::vector<T>& list, const HOPageLayoutBaseElement* element) {
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (list[i].get() == element) return int(i);
    }
    return -1;
}

QJsonObject elementToJson(HOPageLayoutBaseElement& element,
                          const std::vector<HORefPtr<HOPageLayoutBaseElement>>& all, const QDir& folder) {
    const HORect b = element.get_bounds();
    QJsonObject json{{"type", typeNames().at(element.get_element_type())},
                     {"bounds", QJsonArray{b.minx, b.maxx, b.miny, b.maxy}}};
    const QJsonObject properties = element.properties();
    if (!properties.isEmpty()) json["properties"] = properties;
    if (auto* frame = dynamic_cast<HODataFrame*>(&element)) {
        if (HOMapView* view = frame->get_map_view())
            json["map"] = HOMapDocument::Write(*view, frame->get_map_extent(), folder);
    }
    if (auto* surround = dynamic_cast<HOMapSurroundElement*>(&element))
        json["frame"] = indexOf(all, surround->get_frame());
    if (auto* picture = dynamic_cast<HOPictureElement*>(&element))
        json["path"] = folder.relativeFilePath(picture->get_path());
    return json;
}

// The element of one JSON entry; frames are linked by the caller once all elements exist.
HORefPtr<HOPageLayoutBaseElement> elementFromJson(const QJsonObject& json, const QDir& folder,
                                                  HOLayoutDocument::Contents* contents, QString* error) {
    const QJsonArray b = json["bounds"].toArray();
    const QString type = json["type"].toString();
    if (b.size() != 4 || !(b[1].toDouble() > b[0].toDouble()) || !(b[3].toDouble() > b[2].toDouble())) {
        *error = Text::tr("an element of type '%1' has no valid bounds").arg(type);
        return {};
    }
    HORefPtr<HOPageLayoutBaseElement> element;
    if (type == "dataframe") {
        HORefPtr<HODataFrame> frame(new HODataFrame);
        HORect extent;
        QStringList missing;
        frame->set_map_view(HOMapDocument::Read(json["map"].toObject(), folder, &extent, &missing));
        frame->set_map_extent(extent);
        if (!missing.isEmpty()) frame->set_note(Text::tr("Missing data:\n%1").arg(missing.join('\n')));
        contents->missing += missing;
        element = frame.get();
    } else {
        element = newElement(type);
    }
    if (!element) {
        *error = Text::tr("unknown element type '%1'").arg(type);
        return {};
    }
    if (auto* picture = dynamic_cast<HOPictureElement*>(element.get())) {
        const QString path = QDir::cleanPath(folder.absoluteFilePath(json["path"].toString()));
        if (!picture->set_path(path)) contents->missing << Text::tr("cannot read the image '%1'").arg(path);
    }
    element->set_bounds({b[0].toDouble(), b[1].toDouble(), b[2].toDouble(), b[3].toDouble()});
    element->set_properties(json["properties"].toObject());
    return element;
}

HODataFrame* frameAt(const HOLayoutDocument::Contents& contents, const QJsonValue& index) {
    const int i = index.toInt(-1);
    return i >= 0 && i < int(contents.elements.size())
               ? dynamic_cast<HODataFrame*>(contents.elements[std::size_t(i)].get())
               : nullptr;
}

bool parse(const QByteArray& bytes, QJsonObject* root, QString* error) {
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        *error = Text::tr("not a layout document (%1 at byte %2)")
                     .arg(parseError.errorString())
                     .arg(parseError.offset);
        return false;
    }
    *root = document.object();
    if (root->value("format").toString() != kFormat) {
        *error = Text::tr("not a layout document");
        return false;
    }
    const int version = root->value("version").toInt(0);
    if (version < 1 || version > HOLayoutDocument::kVersion) {
        *error = Text::tr("layout document version %1 is not supported (this program reads version %2)")
                     .arg(root->value("version").toVariant().toString())
                     .arg(HOLayoutDocument::kVersion);
        return false;
    }
    return true;
}

}  // namespace

QJsonArray HOLayoutDocument::ElementsToJson(const std::vector<HORefPtr<HOPageLayoutBaseElement>>& elements,
                                            const QDir& folder) {
    QJsonArray list;
    for (const auto& element : elements) list.append(elementToJson(*element, elements, folder));
    return list;
}

bool HOLayoutDocument::ElementsFromJson(const QJsonArray& list, const QDir& folder, Contents* contents,
                                        QString* error) {
    for (const QJsonValue& entry : list) {
        const HORefPtr<HOPageLayoutBaseElement> element =
            elementFromJson(entry.toObject(), folder, contents, error);
        if (!element) return false;
        contents->elements.push_back(element);
    }
    for (int i = 0; i < list.size(); ++i) {
        if (auto* surround = dynamic_cast<HOMapSurroundElement*>(contents->elements[std::size_t(i)].get()))
            surround->set_frame(frameAt(*contents, list[i].toObject()["frame"]));
    }
    return true;
}

bool HOLayoutDocument::Save(HOPageLayoutView& layout, HOFileFunc& file) {
    const auto elements = layout.get_graphicscontainer()->GetElements();
    const QJsonObject root{{"format", kFormat},
                           {"version", kVersion},
                           {"page", pageToJson(layout.GetPageSetup())},
                           {"operatingFrame", indexOf(elements, layout.get_operating_data_frame().get())},
                           {"elements", ElementsToJson(elements, file.Folder())}};
    return file.WriteAll(QJsonDocument(root).toJson(QJsonDocument::Indented));
}

bool HOLayoutDocument::Load(HOFileFunc& file, Contents* contents) {
    QByteArray bytes;
    if (!file.ReadAll(&bytes)) return false;
    QJsonObject root;
    QString error;
    if (!parse(bytes, &root, &error) || !pageFromJson(root["page"].toObject(), &contents->setup, &error)) {
        file.SetError(Text::tr("cannot open '%1': %2").arg(file.Path(), error));
        return false;
    }
    if (!ElementsFromJson(root["elements"].toArray(), file.Folder(), contents, &error)) {
        file.SetError(Text::tr("cannot open '%1': %2").arg(file.Path(), error));
        return false;
    }
    contents->operating = frameAt(*contents, root["operatingFrame"]);
    file.SetWarnings(contents->missing);
    return true;
}

}  // namespace HXObjects
