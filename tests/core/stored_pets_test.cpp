#include "PetNumbers.h"
#include "StoredPet.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace quorvel;

namespace {

StoredPet TemplatePet() {
    StoredPet pet;
    pet.Name = "Kaadu, \"the big one\"";
    pet.Date = "2024-05-01T18:30:00";
    pet.Samples[0] = {"Kaadu", {512, 340, 1, 2, 3, 4, 5, 6, 7, -8}};
    pet.Samples[1] = {"-", {}};
    pet.Samples[2] = {"Rancor\nA", {1, 1, 1, 1, 1, 1, 1, 1, 1, 1}};
    pet.Values = {500, 500, 500, 500, 500, 500, 500, 500, 500, 500};
    pet.Caps = {700, 710, 720, 730, 740, 750, 760, 770, 780, 100000};
    pet.Experimented = {false, true, false, false, true};
    pet.Shown = {"4020",  "43 (435)", "3000 [2697]",         "107", "106", "50%", "4%", "4%",
                 "12.5%", "88 - 362", "49.78 / 50.2 / 47.13"};
    return pet;
}

StoredPet SamplePet() {
    StoredPet pet;
    pet.Name = "Gurk";
    pet.Source = PetSource::Sample;
    pet.Date = "2024-05-02T08:00:00";
    pet.Samples[0] = {"Gurk", {50, 60, 70, 80, 90, 100, 110, 120, 130, 50}};
    pet.Values = pet.Samples[0].Attributes;
    pet.Shown = {"515", "7", "360 [0]", "25", "20", "7.92%", "1.04%", "0.88%", "3%", "-4 - 90", ""};
    return pet;
}

// The file's record of `pet` (the header's line taken off).
std::string Line(const StoredPet &pet) {
    const std::string text = WriteStoredPets({pet});
    return text.substr(text.find("\r\n") + 2);
}

} // namespace

TEST(StoredPetsFile, RoundTripAndExport) {
    const std::vector<StoredPet> pets = {TemplatePet(), SamplePet()};
    const std::string text = WriteStoredPets(pets);
    EXPECT_TRUE(text.starts_with("Name,Source,Date,Physique sample,Physique attributes,Prowess sample,"));
    // Quotes doubled, commas and line feeds inside quotes; a sample's caps and empty categories left blank.
    EXPECT_TRUE(Line(pets[0]).starts_with("\"Kaadu, \"\"the big one\"\"\",Template,2024-05-01T18:30:00,Kaadu,"
                                          "512 340 1 2 3 4 5 6 7 -8,-,0 0 0 0 0 0 0 0 0 0,\"Rancor\nA\","));
    EXPECT_TRUE(Line(pets[1]).ends_with(",50,,,,,,,,,,,00000,515,7,360 [0],25,20,7.92%,1.04%,0.88%,3%,-4 - 90,\r\n"));
    EXPECT_EQ(ReadStoredPets(text).Pets, pets);
    // A byte order mark, lone LFs, blank lines, no header and no final line end read the same.
    std::string lf = "\xEF\xBB\xBF\n" + Line(pets[0]) + "\r\n\n" + Line(pets[1]);
    std::erase(lf, '\r');
    lf.pop_back();
    const StoredPetsRead read = ReadStoredPets(lf);
    EXPECT_EQ(read.Pets, pets);
    EXPECT_TRUE(read.BadLines.empty());

    EXPECT_EQ(ExportStoredPets(pets),
              "\xEF\xBB\xBFName,Source,Date,Health,Regen,Armor,To hit,Defense,State Resist,Critical hit,"
              "Critical save,Aggro bonus,Damage low,Damage high,Level,Physique sample,Prowess sample,"
              "Mental sample,Psychology sample,Aggressiveness sample\r\n"
              "\"Kaadu, \"\"the big one\"\"\",Template,2024-05-01T18:30:00,4020,43,3000,107,106,50,4,4,12.5,88,"
              "362,47.13,Kaadu,-,\"Rancor\nA\",,\r\n"
              "Gurk,Sample,2024-05-02T08:00:00,515,7,360,25,20,7.92,1.04,0.88,3,-4,90,,Gurk,,,,\r\n");
}

// Each case stands between two good records of two lines each (a line feed in a quoted name),
// so the line numbers also count the line feeds inside quotes.
TEST(StoredPetsFile, BadRecordsAreSkippedAndTheirLinesNamed) {
    const std::string good = Line(TemplatePet());
    const std::string unended = good.substr(0, good.size() - 2);
    const auto spoilt = [&](const std::string &from, const std::string &to) {
        std::string bad = good;
        return bad.replace(bad.find(from), from.size(), to);
    };
    const struct {
        std::string record;
        std::vector<int> bad;
    } cases[] = {
        {"just,a,few,fields\r\n", {4}},
        {"\"open quote,Template\r\n", {4}}, // the quote must not swallow the next record
        {"Name,Source\r\n", {4}},           // a second header is no pet
        {spoilt(",500,", ",5x0,"), {4, 5}}, // a bad record over two lines names both
        {spoilt(" -8,", ","), {4, 5}},      // nine attributes
        {spoilt(",4020,", ",much,"), {4, 5}},
        {spoilt(",01001,", ",0101,"), {4, 5}},
        {spoilt("49.78 / 50.2 / 47.13", "high"), {4, 5}},
        {unended + ",x\r\n", {4, 5}}, // a field too many
        {unended + ",,\r\n", {}},     // the padding a spreadsheet adds
    };
    for (const auto &c : cases) {
        const StoredPetsRead read = ReadStoredPets(WriteStoredPets({}) + good + c.record + good);
        EXPECT_EQ(read.BadLines, c.bad) << c.record;
        EXPECT_EQ(read.Pets, std::vector<StoredPet>(c.bad.empty() ? 3 : 2, TemplatePet())) << c.record;
    }
}

TEST(ComparePets, DifferencesAreSecondMinusFirstAndALowerLevelIsBetter) {
    const StoredPet first = TemplatePet();
    StoredPet second = first;
    second.Shown = {"4000", "43 (431)", "3006 [2697]", "107",      "106",    "50.1%",
                    "4%",   "3.99%",    "12.5%",       "-2 - 363", " / 47.1"};
    const auto d = ComparePets(first, second);
    const auto at = [&](PetColumn c) { return d[static_cast<int>(c)]; };
    EXPECT_EQ(at(PetColumn::Health).Difference, -20.0);
    EXPECT_EQ(at(PetColumn::Health).Verdict, Verdict::Worse);
    EXPECT_EQ(at(PetColumn::Regen).Verdict, Verdict::Same); // the tenths are not compared
    EXPECT_EQ(at(PetColumn::Armor).Verdict, Verdict::Better);
    EXPECT_EQ(at(PetColumn::StateResist).Difference, 0.1); // not 0.10000000000000142
    EXPECT_EQ(at(PetColumn::CriticalSave).Difference, -0.01);
    EXPECT_EQ(at(PetColumn::DamageLow).Difference, -90.0);
    EXPECT_EQ(at(PetColumn::DamageHigh).Difference, 1.0);
    EXPECT_EQ(at(PetColumn::Level).Difference, -0.03);
    EXPECT_EQ(at(PetColumn::Level).Verdict, Verdict::Better);
    // No level on one side: nothing to compare.
    second.Shown[static_cast<int>(PetStat::Level)].clear();
    EXPECT_FALSE(ComparePets(first, second)[static_cast<int>(PetColumn::Level)].Difference);
    EXPECT_EQ(ComparePets(second, first)[static_cast<int>(PetColumn::Level)].Verdict, Verdict::Unknown);
}
