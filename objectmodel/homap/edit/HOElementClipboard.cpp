#include "HOElementClipboard.h"

#include <QClipboard>
#include <QDataStream>
#include <QGuiApplication>
#include <QMimeData>

#include "HOGraphicsLayer.h"
#include "edit/HOGeometryWkt.h"

namespace HXObjects {

const char* const HOElementClipboard::kMimeType = "application/x-hxobjects-graphic-elements";

namespace {

const quint32 kFormatVersion = 1;

QDataStream& operator<<(QDataStream& out, const HOColor& c) {
    return out << qint32(c.getR()) << qint32(c.getG()) << qint32(c.getB()) << qint32(c.getA());
}

QDataStream& operator>>(QDataStream& in, HOColor& c) {
    qint32 r = 0, g = 0, b = 0, a = 0;
    in >> r >> g >> b >> a;
    c = HOColor(r, g, b, a);
    return in;
}

void WriteStyle(QDataStream& out, const HOStyle* style) {
    out << bool(style);
    if (!style) return;
    out << qint32(style->GetStyleType()) << qint32(style->GetMarkerShape()) << qint32(style->GetDash())
        << style->GetSize() << style->GetWidth() << style->GetColor() << style->GetOutlineColor();
}

HORefPtr<HOStyle> ReadStyle(QDataStream& in) {
    bool present = false;
    in >> present;
    if (!present) return nullptr;
    qint32 type = 0, shape = 0, dash = 0;
    double size = 0, width = 0;
    HOColor colour, outline;
    in >> type >> shape >> dash >> size >> width >> colour >> outline;
    HORefPtr<HOStyle> style = new HOStyle(static_cast<HOStyle::StyleType>(type));
    style->SetMarkerShape(static_cast<HOStyle::MarkerShape>(shape));
    style->SetDash(static_cast<HOStyle::DashPattern>(dash));
    style->SetSize(size);
    style->SetWidth(width);
    style->SetColor(colour);
    style->SetOutlineColor(outline);
    return style;
}

void WriteGeometry(QDataStream& out, const HOGeometry& geometry) {
    out << qint32(geometry.GetType()) << quint32(geometry.Parts().size());
    for (const auto& part : geometry.Parts()) {
        out << quint32(part.size());
        for (const HOPoint& p : part) out << p.x << p.y;
    }
}

HORefPtr<HOGeometry> ReadGeometry(QDataStream& in) {
    qint32 type = 0;
    quint32 parts = 0;
    in >> type >> parts;
    HORefPtr<HOGeometry> geometry = new HOGeometry(static_cast<HOGeometry::GeoType>(type));
    for (quint32 i = 0; i < parts && in.status() == QDataStream::Ok; ++i) {
        quint32 count = 0;
        in >> count;
        HOGeometry::Part part;
        for (quint32 j = 0; j < count && in.status() == QDataStream::Ok; ++j) {
            HOPoint p;
            in >> p.x >> p.y;
            part.push_back(p);
        }
        geometry->AddPart(std::move(part));
    }
    return geometry;
}

}  // namespace

QMimeData* HOElementClipboard::Encode(const std::vector<HORefPtr<HOElement>>& elements) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    QStringList wkt;
    out << kFormatVersion << quint32(elements.size());
    for (const auto& element : elements) {
        WriteGeometry(out, *element->GetGeometry());
        WriteStyle(out, element->GetStyle().get());
        out << element->GetLabel().toQString();
        wkt << HOGeometryWkt::ToWkt(*element->GetGeometry()).toQString();
    }
    auto* data = new QMimeData;
    data->setData(kMimeType, bytes);
    data->setText(wkt.join('\n'));
    return data;
}

std::vector<HORefPtr<HOElement>> HOElementClipboard::Decode(const QMimeData* data) {
    if (!data) return {};
    if (data->hasFormat(kMimeType)) return decodePrivate(data->data(kMimeType));
    return data->hasText() ? decodeWkt(data->text()) : std::vector<HORefPtr<HOElement>>();
}

std::vector<HORefPtr<HOElement>> HOElementClipboard::decodePrivate(const QByteArray& bytes) {
    QDataStream in(bytes);
    quint32 version = 0, count = 0;
    in >> version >> count;
    std::vector<HORefPtr<HOElement>> elements;
    for (quint32 i = 0; version == kFormatVersion && i < count && in.status() == QDataStream::Ok; ++i) {
        HORefPtr<HOGeometry> geometry = ReadGeometry(in);
        HORefPtr<HOStyle> style = ReadStyle(in);
        QString label;
        in >> label;
        if (in.status() == QDataStream::Ok && !geometry->IsEmpty())
            elements.emplace_back(new HOElement(0, geometry, style, label));
    }
    return in.status() == QDataStream::Ok ? elements : std::vector<HORefPtr<HOElement>>();
}

namespace {

// The geometries of one WKT per non-empty line; empty when a line is not WKT.
std::vector<HORefPtr<HOGeometry>> GeometriesPerLine(const QString& text) {
    std::vector<HORefPtr<HOGeometry>> all;
    for (const QString& line : text.split('\n')) {
        if (line.trimmed().isEmpty()) continue;
        const auto geometries = HOGeometryWkt::FromWkt(line.trimmed());
        if (geometries.empty()) return {};
        all.insert(all.end(), geometries.begin(), geometries.end());
    }
    return all;
}

}  // namespace

// One geometry per line as copied here, else one geometry written over several lines.
std::vector<HORefPtr<HOElement>> HOElementClipboard::decodeWkt(const QString& text) {
    std::vector<HORefPtr<HOGeometry>> geometries = GeometriesPerLine(text);
    if (geometries.empty()) geometries = HOGeometryWkt::FromWkt(text.simplified());
    std::vector<HORefPtr<HOElement>> elements;
    for (const auto& geometry : geometries)
        elements.emplace_back(new HOElement(0, geometry, HOGraphicsLayer::DefaultStyle(geometry->GetType())));
    return elements;
}

void HOElementClipboard::Put(const std::vector<HORefPtr<HOElement>>& elements) {
    QGuiApplication::clipboard()->setMimeData(Encode(elements));
}

std::vector<HORefPtr<HOElement>> HOElementClipboard::Take() {
    return Decode(QGuiApplication::clipboard()->mimeData());
}

}  // namespace HXObjects
