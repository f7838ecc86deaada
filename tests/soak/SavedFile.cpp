#include "SavedFile.h"

#include "Cp1252.h"
#include "DnaFile.h"
#include "Numeric.h"
#include "ReadNumber.h"

#include <QFile>

#include <fstream>

using namespace quorvel;

ReadBack ExpectedReadBack(const DnaLibrary &library, const std::vector<int> &order, bool withWords) {
    ReadBack back;
    for (const int slot : order) {
        DnaRecord record = library.Records[static_cast<std::size_t>(slot)];
        const bool tooLong = std::any_of(record.Attributes.begin(), record.Attributes.end(),
                                         [](int16_t v) { return FormatWhole(v).size() > 5; });
        if (record.Name.find(',') != std::string::npos) {
            back.foretold = false;
            break;
        }
        if (tooLong) {
            back.complete = false;
            break;
        }
        const int readSlot = static_cast<int>(back.records.size()) + 1;
        record.Name = record.Name.empty() ? FormatWhole(readSlot) : Cp1252ToUtf8(Utf8ToCp1252(record.Name));
        if (withWords) {
            record.Planet = 0;
            record.Origin = 0;
            record.Quality = 0.0f;
        } else {
            record.Quality = ToSingle(ReadNumber(FormatSingle(record.Quality)));
        }
        back.records.push_back(record);
    }
    return back;
}

QString SameSample(const DnaRecord &a, const DnaRecord &b) {
    const auto line = [](const DnaRecord &r) { return QString::fromStdString(FormatDnaLine(r, false)).trimmed(); };
    const bool same = a.Name == b.Name && a.Attributes == b.Attributes && a.Level == b.Level && a.Planet == b.Planet &&
                      a.Origin == b.Origin && a.Quality == b.Quality;
    return same ? QString() : QStringLiteral("'%1' against '%2'").arg(line(a), line(b));
}

QString CheckReadBack(const QString &path, const ReadBack &expected) {
    std::ifstream in(QFile::encodeName(path).toStdString(), std::ios::binary);
    if (!in.is_open())
        return QStringLiteral("%1 cannot be read back").arg(path);
    auto library = std::make_unique<DnaLibrary>();
    const LoadEnd end = LoadDnaStream(in, *library, nullptr);
    const auto count = static_cast<std::size_t>(library->Count);
    if (expected.foretold ? count != expected.records.size() : count < expected.records.size())
        return QStringLiteral("%1 reads back %2 samples, not %3").arg(path).arg(count).arg(expected.records.size());
    if (expected.foretold && (end == LoadEnd::Complete) != expected.complete)
        return QStringLiteral("%1 reads back %2")
            .arg(path, expected.complete ? QLatin1String("cut short") : QLatin1String("whole"));
    for (std::size_t i = 0; i < expected.records.size(); ++i) {
        const QString differs = SameSample(library->Records[i + 1], expected.records[i]);
        if (!differs.isEmpty())
            return QStringLiteral("%1, sample %2 reads back as %3").arg(path).arg(i + 1).arg(differs);
    }
    return {};
}
