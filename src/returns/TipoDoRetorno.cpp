#include "returns/TipoDoRetorno.h"

#include <array>
#include <cassert>
#include <span>

namespace quilatador {

namespace {

/// A text that the first line must have, at a 1-based position.
struct Marca {
    VistaTexto campo;
    std::size_t inicio;
    VistaTexto valor;
};

/// What tells the files of a type from others.
struct Tipo {
    VistaTexto id;
    VistaTexto mensagem;
    std::span<const Marca> marcas;
};

constexpr std::array marcasZUL708{Marca{"NomeArquivo"_t, 12, "ZUL708"_t}};
constexpr std::array marcasTAV001{Marca{"TipoReg"_t, 1, "A"_t}, Marca{"CodigoRemessa"_t, 2, "2"_t},
                                  Marca{"VersaoLayout"_t, 80, "03"_t}};

constexpr Tipo tipoZUL708{"zul708.tipoInvalido"_t, " - O Arquivo não é do tipo ZUL708!"_t, marcasZUL708};
constexpr Tipo tipoTAV001{"tav001.tipoInvalido"_t, " - O Arquivo não é do tipo TAV001 ou a versão é diferente de 03!"_t,
                          marcasTAV001};

} // namespace

std::optional<Achado> recusaDoTipo(TipoArquivo tipo, VistaTexto primeiraLinha) {
    assert(tipo != TipoArquivo::ZUL702);
    const Tipo& esperado = tipo == TipoArquivo::ZUL708 ? tipoZUL708 : tipoTAV001;
    for (const auto& [campo, inicio, valor] : esperado.marcas) {
        const VistaTexto encontrado = trecho(primeiraLinha, inicio, valor.size());
        if (encontrado == valor) continue;
        return Achado{.id = esperado.id,
                      .gravidade = Gravidade::Estrutural,
                      .linha = 1,
                      .campo =
                          CampoDoAchado{Texto(campo), static_cast<int>(inicio),
                                        static_cast<int>(inicio + valor.size() - 1), Texto(encontrado), Texto(valor)},
                      .mensagem = junta("Linha: "_t, trecho(primeiraLinha, 235, 6), esperado.mensagem)};
    }
    return std::nullopt;
}

} // namespace quilatador
