#pragma once

#include <QSet>
#include <QString>

#include "SampleRandom.h"

// Pronounceable fictional place names built from syllables, never the same name twice.
class NameGenerator {
public:
    explicit NameGenerator(SampleRandom random) : m_random(random) {}

    QString next();
    // The Chinese name that goes with a generated one: two or three characters chosen by the Latin
    // name alone (so the random sequence, and every other name, stays as it was), then the suffix
    // that says what it is (镇, 河, 湖…).
    static QString chinese(const QString& latin, const QString& suffix);

private:
    QString candidate();

    SampleRandom m_random;
    QSet<QString> m_used;
};
