#include "NameGenerator.h"

#include <QHash>
#include <array>

namespace {
const std::array<const char*, 24> kOnsets = {"b", "d",  "f",  "g",  "h",  "j",  "k",  "l",
                                             "m", "n",  "p",  "r",  "s",  "t",  "v",  "w",
                                             "z", "ch", "sh", "br", "kr", "st", "tr", "gl"};
const std::array<const char*, 10> kVowels = {"a", "e", "i", "o", "u", "a", "o", "ai", "ou", "ea"};
const std::array<const char*, 8> kCodas = {"", "", "", "n", "r", "l", "s", "m"};
const std::array<const char*, 8> kEndings = {"ford", "ton", "haven", "wick", "dale", "mere", "by", "stead"};
// Characters common in place names.
const QString kHanzi = QStringLiteral(
    "安宝昌长成川大东丰福阜高广海和河华怀吉嘉江金静开康兰乐临龙隆梅明南宁平"
    "庆青清泉仁瑞山善盛石寿顺泰桃天通万武西溪仙祥新兴阳永玉云泽正中");
}  // namespace

QString NameGenerator::chinese(const QString& latin, const QString& suffix) {
    uint hash = qHash(latin, 0);  // seeded explicitly: the same in every run
    QString name;
    const int characters = latin.size() > 8 ? 3 : 2;
    for (int i = 0; i < characters; ++i, hash /= uint(kHanzi.size()))
        name += kHanzi[int(hash % uint(kHanzi.size()))];
    return name + suffix;
}

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
