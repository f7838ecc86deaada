#pragma once

#include "DnaRecord.h"
#include "PetStat.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

constexpr int kPetSamples = 5;    // one a template category, Physique first
constexpr int kPetStatTexts = 11; // the statistics panel's value labels, Health .. Level

using PetValues = std::array<int32_t, kAttributeCount>;

enum class PetSource { Template, Sample };

struct PetSample {
    std::string Name; // "" or "-": no sample in that category
    PetValues Attributes{};

    bool operator==(const PetSample &) const = default;
};

// A prediction the player kept: what it was predicted from and what the panel showed.
struct StoredPet {
    std::string Name;
    PetSource Source = PetSource::Template;
    std::string Date; // ISO 8601 text, as the program wrote it
    // A template's five categories; a sample pet holds its one sample in the first.
    std::array<PetSample, kPetSamples> Samples{};
    PetValues Values{}; // the ten values the statistics came from
    PetValues Caps{};   // a template's caps; zero for a sample
    std::array<bool, kPetSamples> Experimented{};
    std::array<std::string, kPetStatTexts> Shown{}; // as the panel showed them, "." as decimal point

    const std::string &Text(PetStat stat) const { return Shown[static_cast<int>(stat)]; }
    bool operator==(const StoredPet &) const = default;
};

// The stored-pets file: CSV, UTF-8, a header row, CR LF line ends.
std::string WriteStoredPets(const std::vector<StoredPet> &pets);

struct StoredPetsRead {
    std::vector<StoredPet> Pets;
    std::vector<int> BadLines; // 1-based line numbers of the records that were skipped
};

// Reads leniently: a record that is not a whole pet is skipped and its first line reported; a
// record spread over several lines by a stray quote is given up at its first line, so that the
// lines after it are read again on their own. Empty lines and a byte order mark are passed over.
StoredPetsRead ReadStoredPets(std::string_view text);

// The table for a spreadsheet: name, source, date, the statistics as numbers (see PetNumbers.h)
// and the sample names; UTF-8 with a byte order mark, CR LF line ends.
std::string ExportStoredPets(const std::vector<StoredPet> &pets);

} // namespace quorvel
