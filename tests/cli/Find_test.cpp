#include "Find.h"

#include "DnaFile.h"
#include "Finder.h"

#include <gtest/gtest.h>

#include <algorithm>
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

Outcome Find(const std::vector<std::string> &arguments) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = RunFind(arguments, out, err);
    return {status, out.str(), err.str()};
}

// Field n (from 0) of the output's first line.
std::string Field(const std::string &out, int n) {
    std::istringstream in(out.substr(0, out.find('\n')));
    std::string field;
    for (int i = 0; i <= n; ++i)
        std::getline(in, field, '\t');
    return field;
}

} // namespace

TEST(QuorvelFind, PrintsOneTabSeparatedLinePerTemplate) {
    DnaLibrary library;
    std::ifstream in(kStarter, std::ios::binary);
    LoadDnaStream(in, library, [](int, const RowCells &) {});
    const FinderSettings settings{FinderGoal::StateResist, 25, LevelEquation::New1, false, false, {0, 0, 3, 0, 0}, 4};
    // Rank, score, level, the five slots and the five names; a percentage goal prints its
    // number alone, with "." for the decimals.
    std::string expected;
    int rank = 0;
    for (const FoundTemplate &t : FindTemplates(library, settings).Templates) {
        expected +=
            std::to_string(++rank) + '\t' + FinderScoreText(settings.Goal, t.Score) + '\t' + FinderLevelText(t.Level);
        for (const int slot : t.Slots)
            expected += '\t' + std::to_string(slot);
        for (std::size_t k = 0; k < kCategoryCount; ++k)
            expected += (k == 0 ? "\t" : " | ") + library.Records[static_cast<std::size_t>(t.Slots[k])].Name;
        expected += '\n';
    }
    ASSERT_EQ(rank, 4);
    const Outcome run = Find({kStarter, "--goal=state-resist", "--max-level", "25", "--equation", "new1", "--fix",
                              "mental=3", "--top", "4"});
    EXPECT_EQ(run.Status, 0);
    EXPECT_EQ(run.Err, "");
    EXPECT_EQ(run.Out, expected);
    EXPECT_EQ(run.Out.find('%'), std::string::npos);

    // Defaults: health, old equation, ten templates of distinct samples.
    const Outcome plain = Find({kStarter});
    EXPECT_EQ(std::count(plain.Out.begin(), plain.Out.end(), '\n'), 10);
    EXPECT_EQ(Field(plain.Out, 8), "Ridge Stalker | Dusk Prowler | Canopy Howler | Ember Wing | Salt Runner");

    // Nothing under the limit: no output, still a success.
    const Outcome none = Find({kStarter, "--goal", "damage", "--max-level", "1"});
    EXPECT_EQ(none.Status, 0);
    EXPECT_EQ(none.Out + none.Err, "");

    const Outcome help = Find({"--help"});
    EXPECT_EQ(help.Status, 0);
    EXPECT_EQ(help.Out.rfind("Usage: quorvel-find FILE [options]", 0), 0u);
    for (const char *word : {"--goal", "--max-level", "--equation", "--experimented", "--reuse", "--fix", "--top",
                             "state-resist", "aggressiveness", "new2", "Exit status"})
        EXPECT_NE(help.Out.find(word), std::string::npos) << word;
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
    // With --reuse one sample fills both, and the three others are any of the twelve.
    const Outcome reused =
        Find({kStarter, "--fix", "prowess=2", "--fix", "psychology=2", "--reuse", "--top", "100000"});
    EXPECT_EQ(reused.Status, 0);
    EXPECT_EQ(std::count(reused.Out.begin(), reused.Out.end(), '\n'), 12 * 12 * 12);
    EXPECT_EQ(Field(reused.Out, 4) + Field(reused.Out, 6), "22");
}
