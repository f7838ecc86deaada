#include "Find.h"

#include "DnaFile.h"
#include "Finder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

using namespace quorvel;

namespace {

const std::string kStarter = std::string(QUORVEL_EXAMPLES_DIR) + "/starter-samples.txt";

struct Outcome {
    int Status = 0;
    std::string Out;
    std::string Err;
};

Outcome Find(std::vector<std::string> arguments) {
    std::ostringstream out;
    std::ostringstream err;
    Outcome run;
    run.Status = RunFind(arguments, out, err);
    run.Out = out.str();
    run.Err = err.str();
    return run;
}

std::vector<std::string> Split(const std::string &text, char separator) {
    std::vector<std::string> parts;
    std::string part;
    std::istringstream in(text);
    while (std::getline(in, part, separator))
        parts.push_back(part);
    return parts;
}

} // namespace

TEST(QuorvelFind, PrintsTheFindersListAsTabSeparatedLines) {
    DnaLibrary library;
    std::ifstream in(kStarter, std::ios::binary);
    LoadDnaStream(in, library, [](int, const RowCells &) {});
    FinderSettings settings;
    settings.Goal = FinderGoal::StateResist;
    settings.MaxLevel = 25;
    settings.Equation = LevelEquation::New1;
    settings.FixedSlots[Index(Category::Mental)] = 3;
    settings.TopK = 4;
    const std::vector<FoundTemplate> expected = FindTemplates(library, settings).Templates;
    ASSERT_EQ(expected.size(), 4u);

    const Outcome run = Find({kStarter, "--goal=state-resist", "--max-level", "25", "--equation", "new1", "--fix",
                              "mental=3", "--top", "4"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Err, "");
    const std::vector<std::string> lines = Split(run.Out, '\n');
    ASSERT_EQ(lines.size(), 4u);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const std::vector<std::string> fields = Split(lines[i], '\t');
        ASSERT_EQ(fields.size(), 9u) << lines[i];
        const FoundTemplate &t = expected[i];
        EXPECT_EQ(fields[0], std::to_string(i + 1));
        // A percentage goal prints its number alone, with "." for the decimals.
        EXPECT_EQ(fields[1], FinderScoreText(settings.Goal, t.Score));
        EXPECT_EQ(fields[1].find('%'), std::string::npos);
        EXPECT_EQ(fields[2], FinderLevelText(t.Level));
        std::string names;
        for (int k = 0; k < kCategoryCount; ++k) {
            EXPECT_EQ(fields[3 + k], std::to_string(t.Slots[k]));
            names += (k > 0 ? " | " : "") + library.Records[static_cast<std::size_t>(t.Slots[k])].Name;
        }
        EXPECT_EQ(fields[8], names);
        EXPECT_EQ(fields[5], "3");
    }

    // Defaults: health, old equation, ten templates of distinct samples.
    const std::vector<std::string> plain = Split(Find({kStarter}).Out, '\n');
    ASSERT_EQ(plain.size(), 10u);
    EXPECT_EQ(Split(plain[0], '\t')[8], "Ridge Stalker | Dusk Prowler | Canopy Howler | Ember Wing | Salt Runner");

    // Nothing under the limit: no output, still a success.
    const Outcome none = Find({kStarter, "--goal", "damage", "--max-level", "1"});
    EXPECT_EQ(none.Status, 0);
    EXPECT_EQ(none.Out + none.Err, "");
}

TEST(QuorvelFind, BadCommandLinesGiveOneErrorLine) {
    const std::string missing = (std::filesystem::temp_directory_path() / "quorvel-find-missing.txt").string();
    const std::pair<std::vector<std::string>, std::string> cases[] = {
        {{}, "no DNA file given (see --help)"},
        {{kStarter, kStarter}, "more than one file: '" + kStarter + "' and '" + kStarter + "'"},
        {{missing}, "cannot read '" + missing + "'"},
        {{kStarter, "--speed"}, "unknown option '--speed' (see --help)"},
        {{kStarter, "--goal", "luck"}, "unknown goal 'luck' (see --help)"},
        {{kStarter, "--goal"}, "--goal needs a value (see --help)"},
        {{kStarter, "--equation", "new3"}, "unknown equation 'new3' (old, new1 or new2)"},
        {{kStarter, "--max-level", "40,5"}, "--max-level needs a number such as 39.99, not '40,5'"},
        {{kStarter, "--max-level", "nan"}, "--max-level needs a number such as 39.99, not 'nan'"},
        {{kStarter, "--top", "0"}, "--top needs a whole number from 1 to 100000, not '0'"},
        {{kStarter, "--top", "100001"}, "--top needs a whole number from 1 to 100000, not '100001'"},
        {{kStarter, "--fix", "tail=3"}, "--fix needs CATEGORY=SLOT, such as mental=3, not 'tail=3'"},
        {{kStarter, "--fix", "mental=0"}, "--fix needs CATEGORY=SLOT, such as mental=3, not 'mental=0'"},
        {{kStarter, "--fix", "mental=13"}, "--fix mental=13: the file has 12 samples"},
        {{kStarter, "--fix", "mental=2", "--fix", "mental=3"}, "--fix: mental is fixed twice"},
        {{kStarter, "--fix", "prowess=2", "--fix", "psychology=2"},
         "--fix: slot 2 is fixed to both prowess and psychology; add --reuse to use it twice"},
    };
    for (const auto &[arguments, message] : cases) {
        const Outcome run = Find(arguments);
        EXPECT_EQ(run.Status, 2) << message;
        EXPECT_EQ(run.Out, "") << message;
        EXPECT_EQ(run.Err, "quorvel-find: " + message + "\n");
    }
    // With --reuse one sample may fill both.
    const Outcome reused = Find({kStarter, "--fix", "prowess=2", "--fix", "psychology=2", "--reuse", "--top", "1"});
    EXPECT_EQ(reused.Status, 0);
    EXPECT_EQ(Split(reused.Out, '\t')[4] + Split(reused.Out, '\t')[6], "22");
}

TEST(QuorvelFind, ReadsTheFileWithTheLoadersRules) {
    // Reading stops at the blank line: the samples after it are not in the library.
    const std::filesystem::path path = std::filesystem::temp_directory_path() / "quorvel-find-short.txt";
    {
        std::ofstream file(path, std::ios::binary);
        for (int n = 1; n <= 6; ++n)
            file << 300 + n << ",310,320,330,340,350,360,370,380,390,Sample " << n << "\r\n";
        file << "\r\n999,999,999,999,999,999,999,999,999,999,Hidden\r\n";
    }
    const Outcome six = Find({path.string(), "--top", "1000"});
    EXPECT_EQ(Split(six.Out, '\n').size(), 720u); // 6 x 5 x 4 x 3 x 2
    EXPECT_EQ(six.Out.find("Hidden"), std::string::npos);
    EXPECT_EQ(Find({path.string(), "--fix", "physique=7"}).Err,
              "quorvel-find: --fix physique=7: the file has 6 samples\n");
    std::filesystem::remove(path);
}

TEST(QuorvelFind, HelpExplainsEveryOption) {
    const Outcome run = Find({"--help"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(run.Out.rfind("Usage: quorvel-find FILE [options]", 0), 0u);
    for (const char *word : {"--goal", "--max-level", "--equation", "--experimented", "--reuse", "--fix", "--top",
                             "state-resist", "aggressiveness", "new2", "Exit status"})
        EXPECT_NE(run.Out.find(word), std::string::npos) << word;
}
