// ReadNumber on any bytes: never crashes, and a text read twice gives the same number.
#include "ReadNumber.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    const double first = quorvel::ReadNumber(text);
    const double second = quorvel::ReadNumber(text);
    if (!(first == second || (std::isnan(first) && std::isnan(second))))
        std::abort();
    return 0;
}
