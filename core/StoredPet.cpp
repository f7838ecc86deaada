#include "StoredPet.h"

#include "Csv.h"
#include "Numeric.h"
#include "PetNumbers.h"
#include "ReferenceTables.h"

#include <optional>

namespace quorvel {

namespace {

constexpr const char *kTemplateSource = "Template";
constexpr const char *kSampleSource = "Sample";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Name, Source, Date, per category its sample's name and attributes, the ten values, the ten
// caps, Experimented, the eleven panel texts.
std::vector<std::string> FileHeader() {
    std::vector<std::string> header = {"Name", "Source", "Date"};
    for (const char *category : CategoryTable) {
        header.push_back(std::string(category) + " sample");
        header.push_back(std::string(category) + " attributes");
    }
    for (const char *attribute : AttributeTable)
        header.emplace_back(attribute);
    for (const char *attribute : AttributeTable)
        header.push_back(std::string(attribute) + " cap");
    header.emplace_back("Experimented");
    for (const char *stat : StatTable)
        header.emplace_back(stat);
    return header;
}

// A sample's attributes as ten whole numbers separated by blanks; a category with no name and
// only zeros (a sample pet's other four) is left empty.
std::string AttributesField(const PetSample &sample) {
    if (sample.Name.empty() && sample.Attributes == PetValues{})
        return {};
    std::string field;
    for (const int32_t value : sample.Attributes) {
        if (!field.empty())
            field += ' ';
        AppendWhole(field, value);
    }
    return field;
}

std::vector<std::string> PetFields(const StoredPet &pet) {
    std::vector<std::string> fields = {pet.Name, pet.Source == PetSource::Template ? kTemplateSource : kSampleSource,
                                       pet.Date};
    for (const PetSample &sample : pet.Samples) {
        fields.push_back(sample.Name);
        fields.push_back(AttributesField(sample));
    }
    for (const int32_t value : pet.Values)
        fields.push_back(FormatWhole(value));
    for (const int32_t cap : pet.Caps)
        fields.push_back(pet.Source == PetSource::Sample ? std::string() : FormatWhole(cap));
    std::string flags;
    for (const bool experimented : pet.Experimented)
        flags += experimented ? '1' : '0';
    fields.push_back(flags);
    fields.insert(fields.end(), pet.Shown.begin(), pet.Shown.end());
    return fields;
}

// Reads the fields of one pet in file order, each read moving on to the next field.
class FieldReader {
public:
    explicit FieldReader(const std::vector<std::string> &fields) : fields_(fields) {}

    const std::string &Next() { return fields_[next_++]; }

    bool Whole(int32_t &out, bool emptyIsZero) {
        const std::string &field = Next();
        if (emptyIsZero && field.empty()) {
            out = 0;
            return true;
        }
        const auto value = ParseExact<int32_t>(field);
        out = value.value_or(0);
        return value.has_value();
    }

    bool Attributes(PetValues &out) {
        std::string_view field = Next();
        out = {};
        if (field.empty())
            return true;
        for (std::size_t i = 0; i < out.size(); ++i) {
            const auto blank = field.find(' ');
            const auto value = ParseExact<int32_t>(field.substr(0, blank));
            if (!value || (blank == std::string_view::npos) != (i + 1 == out.size()))
                return false;
            out[i] = *value;
            field.remove_prefix(blank == std::string_view::npos ? field.size() : blank + 1);
        }
        return true;
    }

private:
    const std::vector<std::string> &fields_;
    std::size_t next_ = 0;
};

std::optional<StoredPet> ParsePet(const std::vector<std::string> &fields, std::size_t columns) {
    // Spreadsheets may pad a row with empty fields; anything else past the last column is a fault.
    if (fields.size() < columns)
        return std::nullopt;
    for (std::size_t i = columns; i < fields.size(); ++i) {
        if (!fields[i].empty())
            return std::nullopt;
    }
    FieldReader reader(fields);
    StoredPet pet;
    pet.Name = reader.Next();
    const std::string &source = reader.Next();
    if (source != kTemplateSource && source != kSampleSource)
        return std::nullopt;
    pet.Source = source == kTemplateSource ? PetSource::Template : PetSource::Sample;
    pet.Date = reader.Next();
    bool ok = true;
    for (PetSample &sample : pet.Samples) {
        sample.Name = reader.Next();
        ok = reader.Attributes(sample.Attributes) && ok;
    }
    for (int32_t &value : pet.Values)
        ok = reader.Whole(value, false) && ok;
    for (int32_t &cap : pet.Caps)
        ok = reader.Whole(cap, true) && ok;
    // A sample has no caps: whatever stands in those fields is not kept.
    if (pet.Source == PetSource::Sample)
        pet.Caps = {};
    const std::string &flags = reader.Next();
    ok = ok && flags.size() == pet.Experimented.size() && flags.find_first_not_of("01") == std::string::npos;
    for (std::size_t i = 0; ok && i < pet.Experimented.size(); ++i)
        pet.Experimented[i] = flags[i] == '1';
    for (std::string &text : pet.Shown)
        text = reader.Next();
    const PetNumbers numbers = ReadPetNumbers(pet);
    // A level text with no figure in it is only right when it is empty (every equation off).
    const bool levelRead = pet.Text(PetStat::Level).empty() || numbers[static_cast<int>(PetColumn::Level)];
    if (!ok || !HasAllStatistics(numbers) || !levelRead)
        return std::nullopt;
    return pet;
}

bool IsEmptyRecord(const CsvRead &read) {
    return read.Fields.size() == 1 && read.Fields[0].empty();
}

} // namespace

std::string WriteStoredPets(const std::vector<StoredPet> &pets) {
    std::string text = CsvRecord(FileHeader());
    for (const StoredPet &pet : pets)
        text += CsvRecord(PetFields(pet));
    return text;
}

StoredPetsRead ReadStoredPets(std::string_view text) {
    StoredPetsRead result;
    const std::vector<std::string> header = FileHeader();
    std::size_t position = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    int line = 1;
    bool first = true;
    while (position < text.size()) {
        const CsvRead read = ReadCsvRecord(text, position);
        if (read.WellFormed && IsEmptyRecord(read)) {
            position = read.end;
            line += read.LineEnds;
            continue;
        }
        // The header is only looked for in the first record; a file without one still reads.
        const bool isHeader = first && read.Fields == header;
        first = false;
        const std::optional<StoredPet> pet =
            read.WellFormed && !isHeader ? ParsePet(read.Fields, header.size()) : std::nullopt;
        if (pet)
            result.Pets.push_back(*pet);
        if (pet || isHeader) {
            position = read.end;
            line += read.LineEnds;
            continue;
        }
        result.BadLines.push_back(line);
        position = NextLineStart(text, position);
        ++line;
    }
    return result;
}

std::string ExportStoredPets(const std::vector<StoredPet> &pets) {
    std::vector<std::string> header = {"Name", "Source", "Date"};
    header.insert(header.end(), PetColumnNames.begin(), PetColumnNames.end());
    for (const char *category : CategoryTable)
        header.push_back(std::string(category) + " sample");
    std::string text(kByteOrderMark);
    text += CsvRecord(header);
    for (const StoredPet &pet : pets) {
        std::vector<std::string> row = {pet.Name, pet.Source == PetSource::Template ? kTemplateSource : kSampleSource,
                                        pet.Date};
        for (const auto &number : ReadPetNumbers(pet))
            row.push_back(number ? FormatDouble(*number) : std::string());
        for (const PetSample &sample : pet.Samples)
            row.push_back(sample.Name);
        text += CsvRecord(row);
    }
    return text;
}

} // namespace quorvel
