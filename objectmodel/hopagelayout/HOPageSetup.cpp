#include "HOPageSetup.h"

#include <QCoreApplication>
#include <QStringList>
#include <cmath>
#include <utility>

namespace HXObjects {

namespace {

struct PaperSize {
    const char* name;
    double shortSide, longSide;
};

const PaperSize kPapers[] = {
    {"A0", 841, 1189}, {"A1", 594, 841}, {"A2", 420, 594},         {"A3", 297, 420},
    {"A4", 210, 297},  {"A5", 148, 210}, {"Letter", 215.9, 279.4}, {"Legal", 215.9, 355.6},
};

}  // namespace

bool HOPageSetup::SetPaper(const QString& name) {
    for (const PaperSize& p : kPapers) {
        if (name.compare(QLatin1String(p.name), Qt::CaseInsensitive) != 0) continue;
        m_paper = p.name;
        m_short = p.shortSide;
        m_long = p.longSide;
        return true;
    }
    return false;
}

bool HOPageSetup::SetCustomSize(double widthMm, double heightMm, QString* error) {
    double a = std::min(widthMm, heightMm), b = std::max(widthMm, heightMm);
    if (!(a > 0.0) || !std::isfinite(b)) {
        if (error) *error = QCoreApplication::translate("HOPageSetup", "the page size must be positive");
        return false;
    }
    if (b > kMaxSideMm || a * b > kMaxAreaMm2) {
        if (error)
            *error = QCoreApplication::translate("HOPageSetup", "a page of %1 x %2 mm is larger than A0")
                         .arg(widthMm)
                         .arg(heightMm);
        return false;
    }
    m_paper = "Custom";
    m_short = a;
    m_long = b;
    m_landscape = widthMm > heightMm;
    return true;
}

double HOPageSetup::Width() const {
    return m_landscape ? m_long : m_short;
}

double HOPageSetup::Height() const {
    return m_landscape ? m_short : m_long;
}

HORect HOPageSetup::PrintableRect() const {
    return {m_margin, Width() - m_margin, m_margin, Height() - m_margin};
}

QStringList HOPageSetup::PaperNames() {
    QStringList names;
    for (const PaperSize& p : kPapers) names << p.name;
    return names;
}

bool HOPageSetup::operator==(const HOPageSetup& o) const {
    return m_paper == o.m_paper && m_short == o.m_short && m_long == o.m_long &&
           m_landscape == o.m_landscape && m_margin == o.m_margin;
}

}  // namespace HXObjects
