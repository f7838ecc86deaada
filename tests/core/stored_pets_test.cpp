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

TEST(StoredPetsFile, RoundTripQuotesEmptyCategoriesAndSampleCaps) {
    const std::vector<StoredPet> pets = {TemplatePet(), SamplePet()};
    const std::string text = WriteStoredPets(pets);
    EXPECT_TRUE(text.starts_with("Name,Source,Date,Physique sample,Physique attributes,Prowess sample,"));
    // Quotes doubled, commas and line feeds inside quotes; a sample's caps and empty categories left blank.
    EXPECT_TRUE(Line(pets[0]).starts_with("\"Kaadu, \"\"the big one\"\"\",Template,2024-05-01T18:30:00,Kaadu,"
                                          "512 340 1 2 3 4 5 6 7 -8,-,0 0 0 0 0 0 0 0 0 0,\"Rancor\nA\","));
    EXPECT_TRUE(Line(pets[1]).ends_with(",50,,,,,,,,,,,00000,515,7,360 [0],25,20,7.92%,1.04%,0.88%,3%,-4 - 90,\r\n"));
    const StoredPetsRead read = ReadStoredPets(text);
    EXPECT_EQ(read.Pets, pets);
    EXPECT_TRUE(read.BadLines.empty());
    // A lone LF, a byte order mark, blank lines and no header at all read the same.
    std::string lf = "\xEF\xBB\xBF\n" + Line(pets[0]) + "\r\n\n" + Line(pets[1]);
    std::erase(lf, '\r');
    EXPECT_EQ(ReadStoredPets(lf).Pets, pets);
    EXPECT_TRUE(ReadStoredPets(lf).BadLines.empty());
}

TEST(StoredPetsFile, BadLinesAreSkippedAndNumberedTheRestKept) {
    StoredPet good = TemplatePet();
    good.Samples[2].Name = "Rancor A";
    const std::string line = Line(good);
    const auto spoilt = [&](const std::string &from, const std::string &to) {
        std::string bad = line;
        return bad.replace(bad.find(from), from.size(), to);
    };
    const std::string withoutEnd = line.substr(0, line.size() - 2);
    const std::string text = WriteStoredPets({}) +                    // 1: the header
                             line + "just,a,few,fields\r\n" +         // 2, 3
                             spoilt(",500,", ",5x0,") +               // 4
                             "\"open quote,Template\r\n" + line +     // 5, and 6 which the quote must not swallow
                             spoilt(" -8,", ",") +                    // 7: nine attributes
                             spoilt(",4020,", ",much,") +             // 8
                             spoilt(",01001,", ",0101,") +            // 9
                             spoilt("49.78 / 50.2 / 47.13", "high") + // 10
                             withoutEnd + ",,\r\n" +                  // 11: padding a spreadsheet adds
                             withoutEnd + ",x\r\n" +                  // 12: a field too many
                             "Name,Source\r\n" +                      // 13: a second header is no pet
                             withoutEnd;                              // 14, no line end at the end
    const StoredPetsRead read = ReadStoredPets(text);
    EXPECT_EQ(read.BadLines, (std::vector<int>{3, 4, 5, 7, 8, 9, 10, 12, 13}));
    EXPECT_EQ(read.Pets, std::vector<StoredPet>(4, good));

    // A bad record over two lines (a line feed in a quoted name) is reported by both lines; line
    // numbers go on counting the line feeds inside quotes.
    const std::string twoLines = Line(TemplatePet());
    std::string badTwoLines = twoLines;
    badTwoLines.replace(badTwoLines.find(",500,"), 5, ",,");
    const StoredPetsRead multi = ReadStoredPets(WriteStoredPets({}) + badTwoLines + twoLines + "x\r\n");
    EXPECT_EQ(multi.BadLines, (std::vector<int>{2, 3, 6}));
    EXPECT_EQ(multi.Pets, std::vector<StoredPet>{TemplatePet()});

    for (const std::string &empty : {std::string(), WriteStoredPets({}), std::string("\r\n\r\n")}) {
        EXPECT_TRUE(ReadStoredPets(empty).Pets.empty());
        EXPECT_TRUE(ReadStoredPets(empty).BadLines.empty());
    }
}

TEST(StoredPetsFile, ExportGivesNumbersAsNumbers) {
    const std::string text = ExportStoredPets({TemplatePet(), SamplePet()});
    EXPECT_EQ(text, "\xEF\xBB\xBFName,Source,Date,Health,Regen,Armor,To hit,Defense,State Resist,Critical hit,"
                    "Critical save,Aggro bonus,Damage low,Damage high,Level,Physique sample,Prowess sample,"
                    "Mental sample,Psychology sample,Aggressiveness sample\r\n"
                    "\"Kaadu, \"\"the big one\"\"\",Template,2024-05-01T18:30:00,4020,43,3000,107,106,50,4,4,12.5,88,"
                    "362,47.13,Kaadu,-,\"Rancor\nA\",,\r\n"
                    "Gurk,Sample,2024-05-02T08:00:00,515,7,360,25,20,7.92,1.04,0.88,3,-4,90,,Gurk,,,,\r\n");
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
