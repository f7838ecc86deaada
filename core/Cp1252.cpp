#include "Cp1252.h"

#include <array>
#include <cstdint>

namespace quorvel {

namespace {

// Bytes 0x80 to 0x9F; the undefined ones keep their own number.
constexpr std::array<char32_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char32_t ByteToCodePoint(unsigned char byte) {
    if (byte >= 0x80 && byte <= 0x9F)
        return kHighControls[byte - 0x80];
    return byte;
}

void AppendUtf8(std::string &out, char32_t cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

// The byte for a code point, or '?' when the code page has none.
char CodePointToByte(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF))
        return static_cast<char>(cp);
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == cp)
            return static_cast<char>(0x80 + i);
    }
    return '?';
}

// Decodes one UTF-8 sequence at `pos`; a malformed one gives nothing and consumes one byte.
bool DecodeUtf8(std::string_view text, std::size_t &pos, char32_t &cp) {
    const auto lead = static_cast<unsigned char>(text[pos]);
    if (lead < 0x80) {
        cp = lead;
        ++pos;
        return true;
    }
    std::size_t length = 0;
    char32_t min = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        min = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        min = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        min = 0x10000;
    } else {
        ++pos;
        return false;
    }
    cp = lead & (0x7Fu >> length);
    if (pos + length > text.size()) {
        ++pos;
        return false;
    }
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[pos + i]);
        if ((next & 0xC0) != 0x80) {
            ++pos;
            return false;
        }
        cp = (cp << 6) | (next & 0x3F);
    }
    if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
        ++pos;
        return false;
    }
    pos += length;
    return true;
}

} // namespace

std::string Cp1252ToUtf8(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size());
    for (const char byte : bytes)
        AppendUtf8(out, ByteToCodePoint(static_cast<unsigned char>(byte)));
    return out;
}

std::string Utf8ToCp1252(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    std::size_t pos = 0;
    while (pos < text.size()) {
        char32_t cp = 0;
        out += DecodeUtf8(text, pos, cp) ? CodePointToByte(cp) : '?';
    }
    return out;
}

} // namespace quorvel
