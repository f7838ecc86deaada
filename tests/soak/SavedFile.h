#pragma once

#include "DnaRecord.h"

#include <QString>

#include <vector>

// What a DNA file written from the library reads back as through the program's own reader.
// The format carries a sample whole as long as its name holds no comma and each attribute
// is at most five characters. Reading stops at an attribute that is too long; a comma in a
// name moves the later fields of its line, and what that line reads as is not foretold.
struct ReadBack {
    std::vector<quorvel::DnaRecord> records; // the samples read back whole, in order
    bool complete = true;
    bool foretold = true; // false after a name with a comma: more samples may follow
};

// The samples of `order`, in that order, as they read back; words give planet, origin and quality 0.
ReadBack ExpectedReadBack(const quorvel::DnaLibrary &library, const std::vector<int> &order, bool withWords);

// An empty text when the two records are the same sample, otherwise what differs.
QString SameSample(const quorvel::DnaRecord &a, const quorvel::DnaRecord &b);

// An empty text when the file at `path` reads back as expected, otherwise what differs.
QString CheckReadBack(const QString &path, const ReadBack &expected);
