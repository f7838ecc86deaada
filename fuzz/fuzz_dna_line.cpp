// One DNA file line: either an error or a sample whose cells and fields agree.
#include "DnaFile.h"
#include "ReferenceTables.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <variant>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string_view line(reinterpret_cast<const char *>(data), size);
    const auto result = quorvel::ParseDnaLine(line, 7);
    const auto *parsed = std::get_if<quorvel::ParsedLine>(&result);
    if (parsed == nullptr)
        return 0;
    const quorvel::DnaRecord &record = parsed->Record;
    if (parsed->Cells[0] != "7" || parsed->Cells[1] != record.Name || record.Name.empty())
        std::abort();
    // A stored sample always writes out and reads back as one line.
    const std::string written = quorvel::FormatDnaLine(record, false);
    if (written.size() < 2 || written.substr(written.size() - 2) != "\r\n")
        std::abort();
    return 0;
}
