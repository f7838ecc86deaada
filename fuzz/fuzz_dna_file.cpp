// A whole DNA file: the loader stops in order, never stores more than the library holds,
// and reports every stored sample exactly once, in slot order.
#include "DnaFile.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    std::istringstream in(std::string(reinterpret_cast<const char *>(data), size));
    quorvel::DnaLibrary library;
    int expected = 1;
    quorvel::LoadDnaStream(in, library, [&](int slot, const quorvel::RowCells &cells) {
        if (slot != expected++ || cells[0] != std::to_string(slot))
            std::abort();
    });
    if (library.Count != expected - 1 || library.Count > quorvel::kMaxSamples)
        std::abort();
    return 0;
}
