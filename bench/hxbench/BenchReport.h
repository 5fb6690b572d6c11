#pragma once
// BenchReport: the figures of one benchmark run, printed as a table with each figure's peer (or
// baseline) beside it and the ratio, plus the target the ratio is held to.
#include <QString>
#include <vector>

class BenchReport {
public:
    // `reference` <= 0: no peer for this figure.
    void Add(const QString& dataset, const QString& figure, double ours, const QString& referenceName,
             double reference, const QString& target = QString());
    void Print() const;

private:
    struct Row {
        QString dataset, figure;
        double ours;
        QString referenceName;
        double reference;
        QString target;
    };
    std::vector<Row> m_rows;
};
