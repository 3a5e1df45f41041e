#pragma once

#include "layout/RegistroRemessa.h"

/// Small layouts for the tests of this folder.
namespace quilatador::testes {

struct Definicao {
    const char* natureza;
    std::int16_t tamanho = 0;
    const char* formato = "";
    std::uint8_t decimais = 0;
    std::uint8_t alinhamento = 0;
};

inline CampoRemessa campo(VistaTexto nome, const Definicao& definicao, Valor valor = Valor::Nulo()) {
    CampoRemessa novo;
    novo.nome(Texto(nome));
    novo.natureza(definicao.natureza);
    novo.Tamanho(definicao.tamanho);
    novo.formato(definicao.formato);
    novo.numeroDecimais(definicao.decimais);
    novo.alinhamento(definicao.alinhamento);
    novo.Valor(std::move(valor));
    return novo;
}

/// A record type of 16 characters, told by its first: "B" + number (3) + date (8) + text (4).
inline RegistroRemessa registro(VistaTexto letra = "B") {
    RegistroRemessa novo;
    novo.nome(Texto(letra));
    novo.Tamanho(16);
    novo.identificador("Tipo");
    novo.add(campo("Tipo", {.natureza = "S", .tamanho = 1}, letra));
    novo.add(campo("Numero", {.natureza = "N", .tamanho = 3}));
    novo.add(campo("Data", {.natureza = "D", .tamanho = 8, .formato = "AAAAMMDD"}));
    novo.add(campo("Texto", {.natureza = "S", .tamanho = 4}));
    return novo;
}

} // namespace quilatador::testes
