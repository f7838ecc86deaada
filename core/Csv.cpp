#include "Csv.h"

namespace quorvel {

namespace {

bool NeedsQuotes(std::string_view field) {
    return field.find_first_of(",\"\r\n") != std::string_view::npos;
}

// The length of the line end at `i` (CR LF counts as one end of two characters), 0 when none.
std::size_t LineEndAt(std::string_view text, std::size_t i) {
    if (text[i] == '\n')
        return 1;
    if (text[i] != '\r')
        return 0;
    return i + 1 < text.size() && text[i + 1] == '\n' ? 2 : 1;
}

} // namespace

std::string CsvRecord(const std::vector<std::string> &fields) {
    std::string record;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0)
            record += ',';
        if (!NeedsQuotes(fields[i])) {
            record += fields[i];
            continue;
        }
        record += '"';
        for (const char c : fields[i]) {
            if (c == '"')
                record += '"';
            record += c;
        }
        record += '"';
    }
    return record + "\r\n";
}

CsvRead ReadCsvRecord(std::string_view text, std::size_t start) {
    CsvRead read;
    std::string field;
    std::size_t i = start;
    bool quoted = false;     // inside a quoted field
    bool afterQuote = false; // a quoted field has just closed
    for (; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted) {
            if (c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
                field += '"';
                ++i;
            } else if (c == '"') {
                quoted = false;
                afterQuote = true;
            } else {
                const std::size_t end = LineEndAt(text, i);
                read.LineEnds += end > 0 ? 1 : 0;
                field.append(text.substr(i, end > 0 ? end : 1));
                i += end > 1 ? end - 1 : 0;
            }
            continue;
        }
        if (const std::size_t end = LineEndAt(text, i); end > 0) {
            read.LineEnds += 1;
            i += end;
            break;
        }
        if (c == ',') {
            read.Fields.push_back(std::move(field));
            field.clear();
            afterQuote = false;
        } else if (afterQuote) {
            read.WellFormed = false;
            field += c;
        } else if (c == '"' && field.empty()) {
            quoted = true;
        } else {
            field += c;
        }
    }
    read.Fields.push_back(std::move(field));
    read.end = i;
    read.WellFormed = read.WellFormed && !quoted;
    return read;
}

std::size_t NextLineStart(std::string_view text, std::size_t position) {
    for (std::size_t i = position; i < text.size(); ++i) {
        if (const std::size_t end = LineEndAt(text, i); end > 0)
            return i + end;
    }
    return text.size();
}

} // namespace quorvel
