#include "Captions.h"

#include "EnumIndex.h"
#include "ReferenceTables.h"

#include <array>

QString SampleBoxCaption(int index) {
    static constexpr std::array<const char *, 2> sampleFields{"Name", "Level"};
    const auto i = static_cast<std::size_t>(index);
    const char *name = i < quorvel::AttributeTable.size() ? quorvel::AttributeTable[i]
                                                          : sampleFields.at(i - quorvel::AttributeTable.size());
    return QString::fromLatin1(name) + QLatin1Char(':');
}

QString StatCaption(int index) {
    return QString::fromLatin1(quorvel::StatTable.at(static_cast<std::size_t>(index))) + QLatin1Char(':');
}

QString CategoryName(quorvel::Category category) {
    return QString::fromLatin1(quorvel::CategoryTable.at(quorvel::Index(category)));
}
