// The stored-pets reader on any bytes; the pets it keeps write out and read back the same, with
// no line reported bad.
#include "StoredPet.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    const quorvel::StoredPetsRead read = quorvel::ReadStoredPets(text);
    const quorvel::StoredPetsRead again = quorvel::ReadStoredPets(quorvel::WriteStoredPets(read.Pets));
    if (again.Pets != read.Pets || !again.BadLines.empty())
        std::abort();
    return 0;
}
