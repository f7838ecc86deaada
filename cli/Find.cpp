#include "Find.h"

#include "DnaFile.h"
#include "Finder.h"
#include "Numeric.h"

#include <array>
#include <cmath>
#include <fstream>
#include <memory>
#include <optional>
#include <string_view>

namespace quorvel {

namespace {

constexpr int kBadUse = 2;
constexpr int kMostTemplates = 100000;

constexpr std::array<const char *, kCategoryCount> kCategoryWords{"physique", "prowess", "mental", "psychology",
                                                                  "aggressiveness"};

constexpr const char *kHelp =
    R"(Usage: quorvel-find FILE [options]

Finds the best DNA templates among the samples of a DNA text file: one sample in
each of the five categories, evaluated as Quorvel's main window evaluates a
template and predicted from its current values. The result is exact: the same
list as trying every template.

FILE is read as Quorvel loads a DNA file: reading stops at the first short or
bad line, and at 500 samples. A sample's slot is its line in the file (1 for
the first).

Options:
  --goal G          what to make as high as possible (default health): health,
                    regen, armor, to-hit, defense, state-resist, critical-hit,
                    critical-save, aggro-bonus, damage (low + high of the
                    range) or level
  --max-level X     keep only templates whose creature level is at most X
                    (the level to 2 decimals, so 39.99 keeps 39.99)
  --equation E      the creature-level equation: old (default), new1 or new2
  --experimented    every category at its caps, as after "+" on all five
  --reuse           let one sample fill several categories (by default each
                    sample is used once)
  --fix C=SLOT      put the sample in slot SLOT into category C: physique,
                    prowess, mental, psychology or aggressiveness; once per
                    category, and without --reuse not two categories to one slot
  --top K           how many templates to print, 1 to 100000 (default 10)
  --help            show this text

Output: one line a template, best first, with tab-separated fields: rank,
score, level, the slots of Physique, Prowess, Mental, Psychology and
Aggressiveness, and their five names joined by " | ". Best means the highest
score, then the lowest level, then the smallest slots, Physique first. Scores
are the statistics panel's numbers without "%" (damage as one number), levels
as the panel writes them; "." is the decimal point. When no template meets the
level limit nothing is printed.

Exit status: 0 when the search ran (also when it printed nothing), 2 for a bad
option, a file that cannot be read or a bad slot, with one line on standard
error.

Example:
  quorvel-find starter-samples.txt --goal damage --max-level 40 --top 3
)";

// A bad command line: the message of its one error line.
struct BadUse {
    std::string Message;
};

std::optional<int> ParseCategory(std::string_view word) {
    for (int k = 0; k < kCategoryCount; ++k) {
        if (word == kCategoryWords[k])
            return k;
    }
    return std::nullopt;
}

struct Command {
    std::string File;
    FinderSettings Settings;
    bool Help = false;
};

// Reads the options; throws BadUse.
class CommandReader final {
public:
    explicit CommandReader(const std::vector<std::string> &arguments) : arguments_(arguments) {}

    Command Read() {
        Command command;
        std::array<bool, kCategoryCount> fixed{};
        for (next_ = 0; next_ < arguments_.size();) {
            const std::string &argument = arguments_[next_++];
            const std::string_view name = OptionName(argument);
            if (argument == "--help" || argument == "-h") {
                command.Help = true;
            } else if (name == "--goal") {
                const std::string value = Value(argument);
                const std::optional<FinderGoal> goal = ParseFinderGoal(value);
                if (!goal)
                    throw BadUse{"unknown goal '" + value + "' (see --help)"};
                command.Settings.Goal = *goal;
            } else if (name == "--max-level") {
                const std::string value = Value(argument);
                const std::optional<double> level = ParseExact<double>(value);
                if (!level || !std::isfinite(*level))
                    throw BadUse{"--max-level needs a number such as 39.99, not '" + value + "'"};
                command.Settings.MaxLevel = level;
            } else if (name == "--equation") {
                const std::string value = Value(argument);
                if (value == "old")
                    command.Settings.Equation = LevelEquation::Old;
                else if (value == "new1")
                    command.Settings.Equation = LevelEquation::New1;
                else if (value == "new2")
                    command.Settings.Equation = LevelEquation::New2;
                else
                    throw BadUse{"unknown equation '" + value + "' (old, new1 or new2)"};
            } else if (argument == "--experimented") {
                command.Settings.Experimented = true;
            } else if (argument == "--reuse") {
                command.Settings.Reuse = true;
            } else if (name == "--fix") {
                ReadFix(Value(argument), fixed, command.Settings);
            } else if (name == "--top") {
                const std::string value = Value(argument);
                const std::optional<int> top = ParseExact<int>(value);
                if (!top || *top < 1 || *top > kMostTemplates)
                    throw BadUse{"--top needs a whole number from 1 to 100000, not '" + value + "'"};
                command.Settings.TopK = *top;
            } else if (argument.size() > 1 && argument[0] == '-') {
                throw BadUse{"unknown option '" + argument + "' (see --help)"};
            } else if (command.File.empty()) {
                command.File = argument;
            } else {
                throw BadUse{"more than one file: '" + command.File + "' and '" + argument + "'"};
            }
        }
        if (!command.Help && command.File.empty())
            throw BadUse{"no DNA file given (see --help)"};
        return command;
    }

private:
    // "--goal" of "--goal" and of "--goal=damage".
    static std::string_view OptionName(std::string_view argument) { return argument.substr(0, argument.find('=')); }

    // The value after "=" or in the next argument.
    std::string Value(const std::string &argument) {
        const std::size_t equals = argument.find('=');
        if (equals != std::string::npos)
            return argument.substr(equals + 1);
        if (next_ >= arguments_.size())
            throw BadUse{argument + " needs a value (see --help)"};
        return arguments_[next_++];
    }

    static void ReadFix(const std::string &value, std::array<bool, kCategoryCount> &fixed, FinderSettings &settings) {
        const std::size_t equals = value.find('=');
        const std::optional<int> category =
            equals == std::string::npos ? std::nullopt : ParseCategory(std::string_view(value).substr(0, equals));
        const std::optional<int> slot =
            equals == std::string::npos ? std::nullopt : ParseExact<int>(std::string_view(value).substr(equals + 1));
        if (!category || !slot || *slot < 1)
            throw BadUse{"--fix needs CATEGORY=SLOT, such as mental=3, not '" + value + "'"};
        // Fixing a category twice is a mistake, not an override.
        if (fixed[*category])
            throw BadUse{std::string("--fix: ") + kCategoryWords[*category] + " is fixed twice"};
        fixed[*category] = true;
        settings.FixedSlots[*category] = *slot;
    }

    const std::vector<std::string> &arguments_;
    std::size_t next_ = 0;
};

// The settings against the loaded library, in the command's own words; throws BadUse.
void CheckSettings(const DnaLibrary &library, const FinderSettings &settings) {
    const std::optional<FinderSettingsProblem> problem = FindSettingsProblem(library, settings);
    if (!problem)
        return;
    const std::string slot = std::to_string(problem->Slot);
    if (problem->What == FinderSettingsProblem::Kind::SlotNotInLibrary) {
        throw BadUse{std::string("--fix ") + kCategoryWords[problem->Category] + "=" + slot + ": the file has " +
                     std::to_string(library.Count) + " samples"};
    }
    if (problem->What == FinderSettingsProblem::Kind::SlotFixedTwice) {
        throw BadUse{"--fix: slot " + slot + " is fixed to both " + kCategoryWords[problem->Other] + " and " +
                     kCategoryWords[problem->Category] + "; add --reuse to use it twice"};
    }
    throw BadUse{*FinderSettingsError(library, settings)};
}

void PrintTemplates(const DnaLibrary &library, const FinderSettings &settings, const FinderResult &result,
                    std::ostream &out) {
    int rank = 0;
    for (const FoundTemplate &t : result.Templates) {
        std::string line = std::to_string(++rank);
        line += '\t';
        line += FinderScoreText(settings.Goal, t.Score);
        line += '\t';
        line += FinderLevelText(t.Level);
        for (const int slot : t.Slots) {
            line += '\t';
            line += std::to_string(slot);
        }
        for (int k = 0; k < kCategoryCount; ++k) {
            line += k == 0 ? "\t" : " | ";
            line += library.Records[static_cast<std::size_t>(t.Slots[k])].Name;
        }
        line += '\n';
        out << line;
    }
}

} // namespace

int RunFind(const std::vector<std::string> &arguments, std::ostream &out, std::ostream &err) {
    try {
        const Command command = CommandReader(arguments).Read();
        if (command.Help) {
            out << kHelp;
            return 0;
        }
        std::ifstream in(command.File, std::ios::binary);
        if (!in)
            throw BadUse{"cannot read '" + command.File + "'"};
        // The library is large (501 records); it lives on the heap.
        const auto library = std::make_unique<DnaLibrary>();
        LoadDnaStream(in, *library, [](int, const RowCells &) {});
        CheckSettings(*library, command.Settings);
        PrintTemplates(*library, command.Settings, FindTemplates(*library, command.Settings), out);
        return 0;
    } catch (const BadUse &bad) {
        err << "quorvel-find: " << bad.Message << '\n';
        return kBadUse;
    }
}

} // namespace quorvel
