#pragma once

#include <string_view>

namespace quorvel {

// Lenient reading of a number from text: blanks, tabs and line feeds anywhere are
// ignored; an optional sign, digits with at most one ".", an optional exponent
// ("E", sign, digits) are read from the start; "&H" and "&O" read hexadecimal and
// octal digits. Reading stops at the first character that cannot continue the
// number; a text without a number reads 0. The decimal point is always ".".
double ReadNumber(std::string_view text);

} // namespace quorvel
