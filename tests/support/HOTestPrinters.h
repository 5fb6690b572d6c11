#pragma once
// Readable QCOMPARE failures and _data() columns for the object model's value types.
#include <QMetaType>
#include <QtTest>

#include "HOColor.h"
#include "HOPoint.h"
#include "HORect.h"

Q_DECLARE_METATYPE(HXObjects::HOColor)
Q_DECLARE_METATYPE(HXObjects::HOPoint)
Q_DECLARE_METATYPE(HXObjects::HORect)

namespace HXObjects {

inline char* toString(const HOColor& c) {
    return QTest::toString(
        QStringLiteral("HOColor(%1, %2, %3, %4)").arg(c.getR()).arg(c.getG()).arg(c.getB()).arg(c.getA()));
}

inline char* toString(const HOPoint& p) {
    return QTest::toString(QStringLiteral("HOPoint(%1, %2)").arg(p.x, 0, 'g', 17).arg(p.y, 0, 'g', 17));
}

inline char* toString(const HORect& r) {
    return QTest::toString(QStringLiteral("HORect(minx %1, maxx %2, miny %3, maxy %4)")
                               .arg(r.minx, 0, 'g', 17)
                               .arg(r.maxx, 0, 'g', 17)
                               .arg(r.miny, 0, 'g', 17)
                               .arg(r.maxy, 0, 'g', 17));
}

}  // namespace HXObjects
