#include "DnaFile.h"

#include "Cp1252.h"
#include "Numeric.h"
#include "ReadNumber.h"
#include "ReferenceTables.h"

#include <cstddef>

namespace quorvel {

namespace {

constexpr std::size_t kNameField = 10;
constexpr std::size_t kLevelField = 11;
constexpr std::size_t kPlanetField = 12;
constexpr std::size_t kOriginField = 13;
constexpr std::size_t kQualityField = 14;
constexpr std::size_t kUsedFields = 15;
constexpr std::size_t kMaxAttributeChars = 5;
constexpr std::size_t kNameColumn = Index(ListColumn::Name);
constexpr std::size_t kFirstAttributeColumn = Index(ListColumn::FirstAttribute);
constexpr std::size_t kLevelColumn = Index(ListColumn::Level);
constexpr std::size_t kPlanetColumn = Index(ListColumn::Planet);
constexpr std::size_t kOriginColumn = Index(ListColumn::Origin);
constexpr std::size_t kQualityColumn = Index(ListColumn::Quality);

// Splits at every comma; whatever follows the fifteenth field is never looked at.
std::vector<std::string_view> SplitFields(std::string_view line) {
    std::vector<std::string_view> fields;
    while (fields.size() < kUsedFields) {
        const auto comma = line.find(',');
        fields.push_back(line.substr(0, comma));
        if (comma == std::string_view::npos)
            break;
        line.remove_prefix(comma + 1);
    }
    return fields;
}

// A whole-number field; a missing one reads 0.
std::optional<int16_t> WholeField(const std::vector<std::string_view> &fields, std::size_t index) {
    if (index >= fields.size())
        return 0;
    return ToInt16(ReadNumber(fields[index]));
}

} // namespace

std::variant<ParsedLine, LineError> ParseDnaLine(std::string_view line, int slot) {
    const auto fields = SplitFields(line);
    if (fields.size() <= kNameField)
        return LineError::TooFewFields;

    ParsedLine parsed;
    DnaRecord &record = parsed.Record;
    RowCells &cells = parsed.Cells;
    for (int i = 0; i < kAttributeCount; ++i) {
        const std::string_view field = fields[i];
        const auto value = ToInt16(ReadNumber(field));
        if (field.size() > kMaxAttributeChars || !value)
            return LineError::BadField;
        record.Attributes[i] = *value;
        cells[kFirstAttributeColumn + i] = Cp1252ToUtf8(PadLoaderCell(std::string(field)));
    }
    record.Name = fields[kNameField].empty() ? FormatWhole(slot) : Cp1252ToUtf8(fields[kNameField]);

    const auto level = WholeField(fields, kLevelField);
    const auto planet = WholeField(fields, kPlanetField);
    const auto origin = WholeField(fields, kOriginField);
    const float quality = kQualityField < fields.size() ? ToSingle(ReadNumber(fields[kQualityField])) : 0.0f;
    if (!level || !planet || !IsValidPlanet(*planet) || !origin || !IsValidOrigin(*origin) || !IsValidQuality(quality))
        return LineError::BadField;
    record.Level = *level;
    record.Planet = *planet;
    record.Origin = *origin;
    record.Quality = quality;

    cells[0] = FormatWhole(slot);
    cells[kNameColumn] = record.Name;
    cells[kLevelColumn] = EditorCell(record.Level);
    cells[kPlanetColumn] = PlanetTable[record.Planet];
    cells[kOriginColumn] = OriginTable[record.Origin];
    cells[kQualityColumn] = QualityTable[QualityIndex(record.Quality)];
    return parsed;
}

bool ReadDnaLine(std::istream &in, std::string &line) {
    line.clear();
    std::streambuf *buffer = in.rdbuf();
    if (!in.good() || buffer == nullptr)
        return false;
    using Traits = std::istream::traits_type;
    Traits::int_type c = buffer->sbumpc();
    if (Traits::eq_int_type(c, Traits::eof())) {
        in.setstate(std::ios::eofbit);
        return false;
    }
    for (; !Traits::eq_int_type(c, Traits::eof()); c = buffer->sbumpc()) {
        if (Traits::to_char_type(c) == '\r') {
            if (Traits::eq_int_type(buffer->sgetc(), Traits::to_int_type('\n')))
                buffer->sbumpc();
            return true;
        }
        line += Traits::to_char_type(c);
    }
    return true;
}

LoadEnd LoadDnaStream(std::istream &in, DnaLibrary &library,
                      const std::function<void(int slot, const RowCells &cells)> &onRow) {
    std::string line;
    while (ReadDnaLine(in, line)) {
        if (library.IsFull())
            return LoadEnd::Stopped;
        const auto result = ParseDnaLine(line, library.Count + 1);
        const auto *parsed = std::get_if<ParsedLine>(&result);
        if (parsed == nullptr)
            return LoadEnd::Stopped;
        const int slot = *library.AppendRecord();
        library.Records[slot] = parsed->Record;
        if (onRow)
            onRow(slot, parsed->Cells);
    }
    // A stream that could not be opened or broke down never reaches its end.
    return in.eof() && !in.bad() ? LoadEnd::Complete : LoadEnd::Stopped;
}

RowCells RebuildRowCells(const DnaRecord &record, int slot) {
    RowCells cells;
    cells[0] = FormatWhole(slot);
    cells[kNameColumn] = record.Name;
    for (int i = 0; i < kAttributeCount; ++i)
        cells[kFirstAttributeColumn + i] = RebuildCell(record.Attributes[i]);
    cells[kLevelColumn] = RebuildCell(record.Level);
    cells[kPlanetColumn] = PlanetName(record.Planet).value_or("");
    cells[kOriginColumn] = OriginName(record.Origin).value_or("");
    cells[kQualityColumn] = QualityName(record.Quality).value_or("");
    return cells;
}

std::string EditedCell(const DnaRecord &record, ListColumn column) {
    switch (column) {
    case ListColumn::Slot:
        break;
    case ListColumn::Name:
        return record.Name;
    case ListColumn::Level:
        return EditorCell(record.Level);
    case ListColumn::Planet:
        return PlanetName(record.Planet).value_or("");
    case ListColumn::Origin:
        return OriginName(record.Origin).value_or("");
    case ListColumn::Quality:
        return QualityName(record.Quality).value_or("");
    default:
        return EditorCell(record.Attributes[Index(column) - kFirstAttributeColumn]);
    }
    return {};
}

RowCells EditedRowCells(const DnaRecord &record, int slot) {
    RowCells cells;
    cells[0] = FormatWhole(slot);
    for (std::size_t c = kNameColumn; c < cells.size(); ++c)
        cells[c] = EditedCell(record, static_cast<ListColumn>(c));
    return cells;
}

std::string FormatDnaLine(const DnaRecord &record, bool withWords) {
    std::string line;
    for (const int16_t value : record.Attributes)
        line += FormatWhole(value) + ',';
    line += Utf8ToCp1252(record.Name) + ',';
    line += FormatWhole(record.Level) + ',';
    if (withWords) {
        line += Utf8ToCp1252(PlanetName(record.Planet).value_or("")) + ',';
        line += Utf8ToCp1252(OriginName(record.Origin).value_or("")) + ',';
        line += Utf8ToCp1252(QualityName(record.Quality).value_or(""));
    } else {
        line += FormatWhole(record.Planet) + ',' + FormatWhole(record.Origin) + ',' + FormatSingle(record.Quality);
    }
    return line + "\r\n";
}

std::string FormatDnaFile(const DnaLibrary &library, const std::vector<int> &slots, bool withWords) {
    std::string text;
    for (const int slot : slots) {
        if (slot >= 0 && slot <= kMaxSamples)
            text += FormatDnaLine(library.Records[slot], withWords);
    }
    return text;
}

} // namespace quorvel
