#include "SettingsFile.h"

#include "Numeric.h"
#include "ReadNumber.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace quorvel {

namespace {

constexpr const char *kKeys[kSettingCount] = {"Min", "OnTop", "LFocus", "Load", "Col", "Size", "Old", "New1", "New2"};
constexpr const char *kExpKey = "Exp";
constexpr const char *kLineEnd = "\r\n";

// Widths and placement are kept within an int so that nothing overflows on the way back out.
double SaneNumber(double value) {
    constexpr double kLow = std::numeric_limits<int>::min();
    constexpr double kHigh = std::numeric_limits<int>::max();
    return std::clamp(value, kLow, kHigh);
}

std::vector<std::string_view> SplitLines(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        lines.push_back(line);
        if (end == std::string_view::npos)
            break;
        text.remove_prefix(end + 1);
    }
    return lines;
}

// A number line: one blank before a value that is not negative, one blank after.
std::string NumberLine(const std::string &number) {
    const bool negative = !number.empty() && number.front() == '-';
    return (negative ? "" : " ") + number + " " + kLineEnd;
}

std::string WidthLine(const std::optional<double> &width) {
    return NumberLine(FormatWhole(static_cast<long long>(std::floor(SaneNumber(width.value_or(0.0))))));
}

std::string PlacementLine(const std::optional<double> &value) {
    return NumberLine(FormatSingle(static_cast<float>(SaneNumber(value.value_or(0.0)))));
}

} // namespace

int ClampExpPoints(int points) {
    return std::clamp(points, 1, 12);
}

SettingsFileData ReadSettingsText(std::string_view text) {
    SettingsFileData data;
    const auto lines = SplitLines(text);
    std::size_t next = 0;
    const auto readNumber = [&]() -> std::optional<double> {
        if (next >= lines.size())
            return std::nullopt;
        return SaneNumber(ReadNumber(lines[next++]));
    };

    while (next < lines.size()) {
        const std::string_view item = lines[next++];
        const auto key = std::find(std::begin(kKeys), std::end(kKeys), item);
        if (key != std::end(kKeys))
            data.Settings.Options[key - std::begin(kKeys)] = true;

        if (item == kKeys[Index(Setting::Load)]) {
            if (next < lines.size())
                data.LastDnaFile = lines[next++];
        } else if (item == kKeys[Index(Setting::Col)]) {
            for (auto &width : data.ColumnWidths) {
                if (const auto value = readNumber())
                    width = value;
            }
        } else if (item == kKeys[Index(Setting::Size)]) {
            for (auto &value : data.Placement) {
                if (const auto number = readNumber())
                    value = number;
            }
        } else if (item == kExpKey) {
            if (const auto points = readNumber())
                data.Settings.ExpPoints = static_cast<int>(std::clamp(RoundHalfEven(*points), -32768.0, 32767.0));
        }
    }
    return data;
}

std::string WriteSettingsText(const SettingsFileData &data) {
    const Settings &settings = data.Settings;
    std::string text;
    const auto key = [&](Setting index) {
        if (settings[index])
            text += std::string(kKeys[Index(index)]) + kLineEnd;
    };

    key(Setting::Min);
    key(Setting::OnTop);
    key(Setting::LFocus);
    key(Setting::Load);
    if (settings[Setting::Load])
        text += data.LastDnaFile + kLineEnd;
    key(Setting::Col);
    if (settings[Setting::Col]) {
        for (const auto &width : data.ColumnWidths)
            text += WidthLine(width);
    }
    key(Setting::Size);
    if (settings[Setting::Size]) {
        for (const auto &value : data.Placement)
            text += PlacementLine(value);
    }
    key(Setting::Old);
    key(Setting::New1);
    key(Setting::New2);
    text += std::string(kExpKey) + kLineEnd;
    text += NumberLine(FormatWhole(ClampExpPoints(settings.ExpPoints)));
    return text;
}

} // namespace quorvel
