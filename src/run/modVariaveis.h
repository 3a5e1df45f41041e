#pragma once

#include <cstdint>

namespace quilatador {

class BancoDeDados;

/// The values that the whole program shares; main creates the one there is.
struct modVariaveis {
    /// The agreement's currency: 6 real, 7 variable currency, 8 and 9 the same with the modulus-11 digit. Whatever
    /// segment C says stays until the next one, valid or not.
    std::int16_t moeda = 0;
    /// The code tables, open from start to end of the program; null where they could not be opened.
    BancoDeDados* bancoDeDados = nullptr;
};

} // namespace quilatador
