#pragma once

#include "DnaRecord.h"

#include <array>
#include <functional>
#include <istream>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quorvel {

constexpr int kListColumns = 16;

// The DNA list's columns: "#", "ID", the ten attributes in their fixed order, "Level",
// "Planet", "W/M" and "Quality".
enum class ListColumn : int {
    Slot,
    Name,
    FirstAttribute,
    Level = FirstAttribute + kAttributeCount,
    Planet,
    Origin,
    Quality,
};

// The column of attribute 0..9.
constexpr ListColumn AttributeColumn(int attribute) {
    return static_cast<ListColumn>(static_cast<int>(ListColumn::FirstAttribute) + attribute);
}

// The texts of one DNA list row, column 0 ("#") to 15 ("Quality"), all UTF-8.
using RowCells = std::array<std::string, kListColumns>;

// How one line of a DNA file reads.
enum class LineError {
    TooFewFields, // fewer than 11 fields (a blank line has one): reading stops, nothing wrong
    BadField,     // a number out of 16-bit range, an index out of its table, an attribute over 5 chars
};

struct ParsedLine {
    DnaRecord Record;
    RowCells Cells; // the loader's own cells: fields as typed, padded to 5; level after three blanks
};

// Converts one line (without its line end, bytes as in the file) for the sample that
// will get `slot` (used for the empty-name rule and the "#" cell).
std::variant<ParsedLine, LineError> ParseDnaLine(std::string_view line, int slot);

// Splits a stream into lines: CR LF or a lone CR ends a line, a lone LF does not;
// a line end at the very end of the stream does not start another line.
// Returns false at the end of the stream (or when it cannot be read).
bool ReadDnaLine(std::istream &in, std::string &line);

enum class LoadEnd {
    Complete, // the whole file was read: the caption shows the path
    Stopped,  // a short line, a bad line, a full library or a read error
};

// Reads samples from `in` into `library` (after its current Count), calling
// `onRow(slot, cells)` for each one as soon as it is stored.
LoadEnd LoadDnaStream(std::istream &in, DnaLibrary &library,
                      const std::function<void(int slot, const RowCells &cells)> &onRow);

// The rebuild's cells of a stored sample.
RowCells RebuildRowCells(const DnaRecord &record, int slot);

// The cell the editor and the Add DNA window write for a stored field: the name as it is,
// numbers with three blanks in front, the words of planet, origin and quality (empty for an
// index outside their table). Not for the "#" column.
std::string EditedCell(const DnaRecord &record, ListColumn column);

// Every cell of a row as the Add DNA window writes it.
RowCells EditedRowCells(const DnaRecord &record, int slot);

// One line of a saved file, with CR LF: fifteen numeric fields, or the last three as words.
std::string FormatDnaLine(const DnaRecord &record, bool withWords);

// The whole file for the given slots, in that order.
std::string FormatDnaFile(const DnaLibrary &library, const std::vector<int> &slots, bool withWords);

} // namespace quorvel
