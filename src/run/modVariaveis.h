#pragma once

#include <cstdint>

namespace quilatador {

class BancoDeDados;

/// The values that the whole program shares. The main function creates the only object and passes it on.
struct modVariaveis {
    /// The currency code of the agreement: 6 is real and 7 a variable currency, both with modulus 10; 8 and 9 are the
    /// same with modulus 11. Segment C sets it, to a valid code or not, and it stays until the next segment C.
    std::int16_t moeda = 0;
    /// The code tables, open as long as the program runs. Null when they could not be opened.
    BancoDeDados* bancoDeDados = nullptr;
};

} // namespace quilatador
