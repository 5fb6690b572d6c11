#include "BenchReport.h"

#include <cstdio>

void BenchReport::Add(const QString& dataset, const QString& figure, double ours,
                      const QString& referenceName, double reference, const QString& target) {
    m_rows.push_back({dataset, figure, ours, referenceName, reference, target});
}

void BenchReport::Print() const {
    std::printf("\n%-9s %-34s %10s   %-22s %10s %8s   %s\n", "dataset", "figure", "ours", "beside", "theirs",
                "ratio", "target");
    for (const Row& r : m_rows) {
        const bool peer = r.reference > 0;
        std::printf("%-9s %-34s %10.4f   %-22s %10s %8s   %s\n", qPrintable(r.dataset), qPrintable(r.figure),
                    r.ours, qPrintable(peer ? r.referenceName : QStringLiteral("-")),
                    peer ? qPrintable(QString::number(r.reference, 'f', 4)) : "-",
                    peer ? qPrintable(QString::number(r.ours / r.reference, 'f', 3)) : "-",
                    qPrintable(r.target));
    }
    std::fflush(stdout);
}
