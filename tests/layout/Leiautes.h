#pragma once

#include "layout/RegistroRemessa.h"

/// Small layouts for the tests of this folder.
namespace quilatador::testes {

struct Definicao {
    VistaTexto natureza;
    std::int16_t tamanho = 0;
    VistaTexto formato = {};
    std::uint8_t decimais = 0;
    std::uint8_t alinhamento = 0;
};

inline CampoRemessa campo(VistaTexto nome, const Definicao& definicao, Valor valor = Valor::Nulo()) {
    CampoRemessa novo;
    novo.nome(Texto(nome));
    novo.natureza(Texto(definicao.natureza));
    novo.Tamanho(definicao.tamanho);
    novo.formato(Texto(definicao.formato));
    novo.numeroDecimais(definicao.decimais);
    novo.alinhamento(definicao.alinhamento);
    novo.Valor(std::move(valor));
    return novo;
}

/// A record type of 16 characters, told by its first: "B" + number (3) + date (8) + text (4).
inline RegistroRemessa registro(VistaTexto letra = "B"_t) {
    RegistroRemessa novo;
    novo.nome(Texto(letra));
    novo.Tamanho(16);
    novo.identificador(Texto("Tipo"_t));
    novo.add(campo("Tipo"_t, {.natureza = "S"_t, .tamanho = 1}, letra));
    novo.add(campo("Numero"_t, {.natureza = "N"_t, .tamanho = 3}));
    novo.add(campo("Data"_t, {.natureza = "D"_t, .tamanho = 8, .formato = "AAAAMMDD"_t}));
    novo.add(campo("Texto"_t, {.natureza = "S"_t, .tamanho = 4}));
    return novo;
}

} // namespace quilatador::testes
