// The settings file reader on any bytes; what it read always writes out and reads back the same.
#include "SettingsFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    const quorvel::SettingsFileData read = quorvel::ReadSettingsText(text);
    const std::string written = quorvel::WriteSettingsText(read);
    const quorvel::SettingsFileData again = quorvel::ReadSettingsText(written);
    if (again.Settings.Options != read.Settings.Options || WriteSettingsText(again) != written)
        std::abort();
    return 0;
}
