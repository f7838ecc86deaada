#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorvel {

// Comma-separated text as spreadsheets write it. A field holding a comma, a quote, CR or LF
// is put in quotes with its quotes doubled; a record ends with CR LF.
std::string CsvRecord(const std::vector<std::string> &fields);

struct CsvRead {
    std::vector<std::string> Fields;
    std::size_t end = 0;    // just after the record's line end (or the end of the text)
    int LineEnds = 0;       // line ends consumed, those inside quoted fields included
    bool WellFormed = true; // false: a quote left open, or a closing quote followed by other text
};

// Reads the record that starts at `start`. CR LF, a lone LF or a lone CR ends it outside quotes.
// A quote inside an unquoted field is taken as it stands.
CsvRead ReadCsvRecord(std::string_view text, std::size_t start);

// The start of the line after the one holding `position`.
std::size_t NextLineStart(std::string_view text, std::size_t position);

} // namespace quorvel
