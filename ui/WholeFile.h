#pragma once

#include <QString>

#include <string>

// Writes the whole text or nothing: the old file is replaced only once the new one is complete.
// Returns an empty text, or the reason the file could not be written (the old one then stays).
QString WriteWholeFile(const QString &path, const std::string &text);
