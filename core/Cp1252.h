#pragma once

#include <string>
#include <string_view>

namespace quorvel {

// Names in DNA files are single bytes of Windows-1252. The five bytes that code page
// leaves undefined map to the control characters of the same number, so that any file
// read and written again is the same bytes. A character with no byte is written as "?".
std::string Cp1252ToUtf8(std::string_view bytes);
std::string Utf8ToCp1252(std::string_view text);

} // namespace quorvel
