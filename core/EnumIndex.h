#pragma once

#include <cstddef>
#include <type_traits>

namespace quorvel {

// The position an enumerator stands for in the arrays and tables it indexes
// (values[Index(Attribute::Power)]).
template <typename E>
requires std::is_enum_v<E>
constexpr std::size_t Index(E e) {
    return static_cast<std::size_t>(e);
}

} // namespace quorvel
