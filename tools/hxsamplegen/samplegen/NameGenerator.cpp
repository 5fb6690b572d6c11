#include "NameGenerator.h"

#include <array>

namespace {
const std::array<const char*, 24> kOnsets = {"b", "d",  "f",  "g",  "h",  "j",  "k",  "l",
                                             "m", "n",  "p",  "r",  "s",  "t",  "v",  "w",
                                             "z", "ch", "sh", "br", "kr", "st", "tr", "gl"};
const std::array<const char*, 10> kVowels = {"a", "e", "i", "o", "u", "a", "o", "ai", "ou", "ea"};
const std::array<const char*, 8> kCodas = {"", "", "", "n", "r", "l", "s", "m"};
const std::array<const char*, 8> kEndings = {"ford", "ton", "haven", "wick", "dale", "mere", "by", "stead"};
}  // namespace

QString NameGenerator::candidate() {
    QString name;
    const int syllables = m_random.integer(2, 3);
    for (int i = 0; i < syllables; ++i) {
        name += kOnsets[m_random.integer(0, int(kOnsets.size()) - 1)];
        name += kVowels[m_random.integer(0, int(kVowels.size()) - 1)];
        if (i + 1 == syllables || m_random.chance(0.25))
            name += kCodas[m_random.integer(0, int(kCodas.size()) - 1)];
    }
    if (syllables == 2 && m_random.chance(0.3))
        name += kEndings[m_random.integer(0, int(kEndings.size()) - 1)];
    name[0] = name[0].toUpper();
    return name;
}

QString NameGenerator::next() {
    QString name = candidate();
    for (int suffix = 2; m_used.contains(name); ++suffix) {
        const QString another = candidate();
        name = m_used.contains(another) ? another + QString::number(suffix) : another;
    }
    m_used.insert(name);
    return name;
}
