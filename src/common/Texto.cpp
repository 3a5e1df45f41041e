#include "common/Texto.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace quilatador {

namespace {

constexpr unsigned char maiuscula(unsigned char c) noexcept {
    if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 32);
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return static_cast<unsigned char>(c - 32);
    switch (c) {
    case 0x9A:
        return 0x8A; // š
    case 0x9C:
        return 0x8C; // œ
    case 0x9E:
        return 0x8E; // ž
    case 0xFF:
        return 0x9F; // ÿ
    default:
        return c;
    }
}

constexpr char minusculaAscii(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

template <typename Caractere>
Texto converterUtf8(std::basic_string_view<Caractere> utf8) {
    Texto texto;
    texto.reserve(utf8.size());
    while (!utf8.empty()) {
        const detalhe::Ponto ponto = detalhe::lerPonto(utf8);
        const int codigo = ponto.bytes == 0 ? static_cast<int>(ponto.valor) : detalhe::codigo1252(ponto.valor);
        texto.push_back(codigo < 0 ? '?' : static_cast<char>(codigo));
        utf8.remove_prefix(std::max<std::size_t>(ponto.bytes, 1));
    }
    return texto;
}

template <typename Cadeia>
Cadeia converter1252(VistaTexto texto) {
    using Caractere = typename Cadeia::value_type;
    Cadeia utf8;
    utf8.reserve(texto.size());
    for (const char c : texto) {
        const auto codigo = static_cast<unsigned char>(c);
        const unsigned ponto = codigo >= 0x80 && codigo < 0xA0 ? detalhe::altos[codigo - 0x80u] : codigo;
        if (ponto < 0x80) {
            utf8.push_back(static_cast<Caractere>(ponto));
        } else if (ponto < 0x800) {
            utf8.push_back(static_cast<Caractere>(0xC0 | (ponto >> 6)));
            utf8.push_back(static_cast<Caractere>(0x80 | (ponto & 0x3F)));
        } else {
            utf8.push_back(static_cast<Caractere>(0xE0 | (ponto >> 12)));
            utf8.push_back(static_cast<Caractere>(0x80 | ((ponto >> 6) & 0x3F)));
            utf8.push_back(static_cast<Caractere>(0x80 | (ponto & 0x3F)));
        }
    }
    return utf8;
}

/// The digits and sign of a number, in memory that is large enough for the longest one.
class Digitos {
  public:
    explicit Digitos(long long numero) noexcept
        : fim_(std::to_chars(digitos_.data(), digitos_.data() + digitos_.size(), numero).ptr) {}

    [[nodiscard]] VistaTexto texto() const noexcept { return {digitos_.data(), fim_}; }

  private:
    std::array<char, std::numeric_limits<long long>::digits10 + 2> digitos_; // one more digit, and the sign
    const char* fim_;
};

} // namespace

Texto paraTexto(VistaUtf8 utf8) {
    return converterUtf8(utf8);
}
Utf8 paraUtf8(VistaTexto texto) {
    return converter1252<Utf8>(texto);
}
Texto textoDeUtf8(std::string_view utf8) {
    return converterUtf8(utf8);
}
std::string utf8DeTexto(VistaTexto texto) {
    return converter1252<std::string>(texto);
}

Texto textoDoCaminho(const std::filesystem::path& caminho) {
    return paraTexto(caminho.u8string());
}

Texto maiusculas(VistaTexto texto) {
    Texto resultado(texto);
    for (char& c : resultado)
        c = static_cast<char>(maiuscula(static_cast<unsigned char>(c)));
    return resultado;
}

bool iguaisSemCaixa(VistaTexto a, VistaTexto b) noexcept {
    return std::ranges::equal(a, b, [](char x, char y) { return minusculaAscii(x) == minusculaAscii(y); });
}

Texto comMascara(VistaTexto texto, VistaTexto mascara) {
    const auto lugares = static_cast<std::size_t>(std::ranges::count(mascara, '@'));
    const std::size_t sobra = texto.size() > lugares ? texto.size() - lugares : 0;
    std::size_t vagos = lugares > texto.size() ? lugares - texto.size() : 0;
    Texto resultado(texto.substr(0, sobra));
    texto.remove_prefix(sobra);
    for (const char c : mascara) {
        if (c != '@') {
            resultado.push_back(c);
        } else if (vagos > 0) {
            resultado.push_back(' ');
            --vagos;
        } else {
            resultado.push_back(texto.front());
            texto.remove_prefix(1);
        }
    }
    return resultado;
}

Texto textoDe(long long numero) {
    return Texto(Digitos(numero).texto());
}

Texto comZeros(long long numero, std::size_t largura) {
    const Digitos lidos(numero);
    VistaTexto digitos = lidos.texto();
    const std::size_t sinal = numero < 0 ? 1 : 0;
    digitos.remove_prefix(sinal);
    Texto texto(sinal + std::max(largura, digitos.size()), '0');
    if (sinal > 0) texto.front() = '-';
    digitos.copy(texto.data() + texto.size() - digitos.size(), digitos.size());
    return texto;
}

} // namespace quilatador
