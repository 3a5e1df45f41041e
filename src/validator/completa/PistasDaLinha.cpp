#include "validator/completa/PistasDaLinha.h"

namespace quilatador {

namespace {

using Causa = Deslize::Causa;

/// The mark at the start of some bytes, without its place; without bytes if there is none.
Marca marcaDe(std::string_view resto) noexcept {
    const auto marca = [](std::size_t bytes, Causa causa, std::size_t maior) {
        return Marca{.bytes = static_cast<int>(bytes), .causa = causa, .maior = static_cast<int>(maior)};
    };
    const char c = resto.front();
    if (c == '\t') return {.bytes = 1, .causa = Causa::Tabulacao, .menor = 1 - paradaDaTabulacao, .maior = 1};
    if (resto.starts_with("\r\n")) return marca(2, Causa::QuebraDeLinha, 2);
    if (c == '\r' || c == '\n') return marca(1, Causa::QuebraDeLinha, 1);
    if (c == '\xA0') return marca(1, Causa::EspacoRigido, 1);
    const std::size_t bytes = detalhe::lerPonto(resto).bytes;
    if (bytes < 2) return {};
    if (resto.starts_with("\xEF\xBB\xBF")) return marca(bytes, Causa::Bom, bytes);
    // The character itself has its place, so that only the bytes after the first are too many.
    return marca(bytes, resto.starts_with("\xC2\xA0") ? Causa::EspacoRigido : Causa::ParUtf8, bytes - 1);
}

} // namespace

PistasDaLinha::PistasDaLinha(VistaTexto linha) : linha_(linha) {
    acharMarcas();
    contarTudo();
}

void PistasDaLinha::acharMarcas() {
    for (std::size_t i = 0; i < linha_.size(); ++i) {
        Marca marca = marcaDe(bytesDoTexto(linha_).substr(i));
        if (marca.bytes == 0) continue;
        marca.inicio = static_cast<int>(i);
        marcas_.push_back(marca);
        i += static_cast<std::size_t>(marca.bytes) - 1;
    }
}

void PistasDaLinha::contarTudo() {
    ate_.resize(linha_.size() + 1);
    cheio_.resize(linha_.size() + 1, tamanho());
    auto marca = marcas_.begin();
    for (int i = 0, brancos = 0; i < tamanho(); ++i) {
        Contagem& soma = ate_[static_cast<std::size_t>(i) + 1] = ate_[static_cast<std::size_t>(i)];
        const bool cheio = !branco(i);
        const bool comMarca = marca != marcas_.end() && marca->inicio == i;
        soma.cheios += cheio;
        soma.digitos += byte(i) >= '0' && byte(i) <= '9';
        soma.duplos += cheio && !comMarca && brancos == 2;
        soma.vaos += cheio && !comMarca && brancos > 2;
        brancos = cheio ? 0 : brancos + 1;
        if (!comMarca) continue;
        ++soma.marcas;
        soma.bytesDeMarcas += marca->bytes;
        soma.menor += marca->menor;
        soma.maior += marca++->maior;
    }
    for (std::size_t i = linha_.size(); i-- > 0;)
        cheio_[i] = linha_[i] == ' ' ? cheio_[i + 1] : static_cast<int>(i);
}

} // namespace quilatador
