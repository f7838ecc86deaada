#pragma once

#include "EnumIndex.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorvel {

// The nine options, indexed as the Options window's check boxes.
enum class Setting : int { Min, OnTop, LFocus, Load, Col, Size, Old, New1, New2 };
constexpr int kSettingCount = 9;

struct Settings {
    std::array<bool, kSettingCount> Options{};
    int ExpPoints = 0;

    bool operator[](Setting s) const { return Options[Index(s)]; }
    bool &operator[](Setting s) { return Options[Index(s)]; }
};

// Brings experimentation points into 1..12, as the Options window does when it opens.
int ClampExpPoints(int points);

// What the settings file holds: the options, the last DNA file, and the widths and
// placement in twips. Widths and placement read from a file that ends inside their
// group hold only the values read before the end.
struct SettingsFileData {
    quorvel::Settings Settings;
    std::string LastDnaFile; // UTF-8
    std::array<std::optional<double>, 16> ColumnWidths{};
    std::array<std::optional<double>, 4> Placement{}; // left, top, width, height
};

// Reads the file's text (each line whole, CR LF or LF ends a line). Unknown lines are
// skipped, keys may repeat and come in any order; a file cut short keeps what came before.
SettingsFileData ReadSettingsText(std::string_view text);

// The file's text in its fixed order, CR LF, numbers with a blank before (or a minus) and
// a blank after. Widths are written rounded down; placement as single-precision numbers.
// ExpPoints is brought into 1..12 first.
std::string WriteSettingsText(const SettingsFileData &data);

} // namespace quorvel
