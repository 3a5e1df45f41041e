#include "tables/FormatoJet.h"

#include <array>
#include <bit>
#include <numeric>
#include <utility>

namespace quilatador {

namespace {

constexpr std::uint32_t chaveDoCabecalho = 0x6B39DAC7;

constexpr std::size_t byteDe(std::uint32_t numero, std::size_t qual) noexcept {
    return (numero >> (8 * qual)) & 0xFF;
}

} // namespace

/// RC4; the key is the four bytes of `chave`, starting with the lowest.
void cifrarJet(std::span<char> bytes, std::uint32_t chave) {
    std::array<std::uint8_t, 256> estado{};
    std::iota(estado.begin(), estado.end(), std::uint8_t{0});
    for (std::size_t i = 0, j = 0; i < estado.size(); ++i) {
        j = (j + estado[i] + byteDe(chave, i % 4)) % estado.size();
        std::swap(estado[i], estado[j]);
    }
    std::size_t i = 0;
    std::size_t j = 0;
    for (char& byte : bytes) {
        i = (i + 1) % estado.size();
        j = (j + estado[i]) % estado.size();
        std::swap(estado[i], estado[j]);
        byte = static_cast<char>(static_cast<unsigned char>(byte) ^ estado[(estado[i] + estado[j]) % estado.size()]);
    }
}

void cifrarCabecalhoJet(std::span<char> pagina, const FormatoJet& formato) {
    cifrarJet(pagina.subspan(lugarJet::inicioCifrado, formato.cabecalhoCifrado), chaveDoCabecalho);
}

void mascararSenhaJet(std::span<char> pagina, const FormatoJet& formato) {
    if (formato.versao == VersaoJet::Jet3) return;
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < sizeof bits; ++i)
        bits |= std::uint64_t{static_cast<unsigned char>(pagina[lugarJet::data + i])} << (8 * i);
    const auto data = std::bit_cast<double>(bits);
    constexpr double maiorData = 2958465; // the last day of the year 9999
    const auto dias = data >= 0 && data <= maiorData ? static_cast<std::uint32_t>(data) : 0;
    const auto senha = pagina.subspan(lugarJet::senha, formato.senha);
    for (std::size_t i = 0; i < senha.size(); ++i)
        senha[i] = static_cast<char>(static_cast<unsigned char>(senha[i]) ^ byteDe(dias, i % 4));
}

} // namespace quilatador
