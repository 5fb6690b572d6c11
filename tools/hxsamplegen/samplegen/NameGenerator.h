#pragma once

#include <QSet>
#include <QString>

#include "SampleRandom.h"

// Pronounceable fictional place names built from syllables, never the same name twice.
class NameGenerator {
public:
    explicit NameGenerator(SampleRandom random) : m_random(random) {}

    QString next();

private:
    QString candidate();

    SampleRandom m_random;
    QSet<QString> m_used;
};
