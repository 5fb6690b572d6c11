#pragma once
// HOPageSetup: the sheet a layout is printed on — a paper size (ISO A0-A5, US Letter and Legal, or a
// custom size), its orientation and the margins, all in millimetres. A plain value.
#include <QString>

#include "HORect.h"
#include "HXExport.h"

namespace HXObjects {

class HX_EXPORT HOPageSetup {
public:
    // The largest sheet accepted (A0 in either orientation): a bigger page is a typing error that
    // would allocate gigabytes when it is rendered.
    static constexpr double kMaxSideMm = 1189.0;
    static constexpr double kMaxAreaMm2 = 841.0 * 1189.0;

    // A4 landscape with 10 mm margins.
    HOPageSetup() = default;

    // "A0".."A5", "Letter", "Legal" (any case); false for another name.
    bool SetPaper(const QString& name);
    // A custom sheet given portrait-way or landscape-way; false when it is not positive or exceeds A0.
    bool SetCustomSize(double widthMm, double heightMm, QString* error = nullptr);
    void SetLandscape(bool landscape) { m_landscape = landscape; }
    void SetMargin(double mm) { m_margin = mm; }

    QString Paper() const { return m_paper; }
    bool IsLandscape() const { return m_landscape; }
    double Margin() const { return m_margin; }
    double Width() const;
    double Height() const;
    // The sheet in page units: (0, width, 0, height).
    HORect PageRect() const { return {0.0, Width(), 0.0, Height()}; }
    // The sheet inside its margins.
    HORect PrintableRect() const;

    static QStringList PaperNames();

    bool operator==(const HOPageSetup& o) const;

private:
    QString m_paper = "A4";
    double m_short = 210.0, m_long = 297.0;
    bool m_landscape = true;
    double m_margin = 10.0;
};

}  // namespace HXObjects
