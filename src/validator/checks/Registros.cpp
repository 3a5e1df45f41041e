#include "validator/checks/Registros.h"

#include "common/modDepuracao.h"
#include "validator/checks/SegmentosABC.h"
#include "validator/checks/SegmentosDEF.h"
#include "validator/checks/SegmentosGKL.h"

#include <array>

namespace quilatador {

namespace {

/// An error about a line as a whole.
Achado erroDaLinha(VistaTexto id, char letra, std::int64_t linha, VistaTexto mensagem) {
    return {.id = id,
            .gravidade = Gravidade::Erro,
            .linha = linha,
            .segmento = letra,
            .campo = std::nullopt,
            .mensagem = Texto(mensagem)};
}

} // namespace

void verificarCaracteres(Apontador& apontador, const RegistroRemessa& registro, char letra, std::int64_t linha) {
    const Texto especiais = modDepuracao::caracteresEspeciais(registro.linha());
    if (especiais.empty()) return;
    apontador.apontar(erroDaLinha("linha.caracteresEspeciais"_t, letra, linha,
                                  junta("Caracteres especiais não permitidos! "_t, especiais)),
                      {});
}

void verificarDefinicao(Apontador& apontador, const RegistroRemessa& registro, char letra, Definicao& definicao) {
    switch (letra) {
    case 'B':
        definicao.registroB = registro.copia();
        return verificarSegmentoB(apontador, definicao);
    case 'C':
        definicao.registroC = registro.copia();
        return verificarSegmentoC(apontador, definicao);
    case 'D':
        definicao.registroD = registro.copia();
        return verificarSegmentoD(apontador, definicao);
    case 'E':
        definicao.registroE = registro.copia();
        return verificarSegmentoE(apontador, definicao);
    case 'F':
        definicao.registroF = registro.copia();
        return verificarSegmentoF(apontador, definicao);
    case 'G':
        return verificarSegmentoG(apontador, registro, definicao);
    case 'K':
        return verificarSegmentoK(apontador, registro, definicao);
    case 'L':
        verificarSegmentoL(apontador, registro, definicao);
        ++definicao.parcelasPrevistas;
        break;
    default:
        break;
    }
}

void guardarNaGuia(Apontador& apontador, const RegistroRemessa& registro, char letra, std::int64_t linha,
                   GuiaEmMaos& guia, const Definicao& definicao) {
    constexpr std::array fundamentos{Fundamento{.letra = 'L'}, Fundamento{.letra = 'Y', .campo = 1}}; // options, order
    switch (letra) {
    case 'X':
        if (!guia.guardarMensagem(registro))
            apontador.apontar(
                erroDaLinha("x.quantidade.excedida"_t, letra, linha,
                            "Somente podem ser informadas 4 linhas de mensagem (segmento X) por recebimento!"_t),
                {});
        break;
    case 'Y':
        if (!guia.guardarParcela(registro, definicao.parcelasPrevistas))
            apontador.apontar(erroDaLinha("y.quantidade.excedida"_t, letra, linha,
                                          "Foram informadas mais parcelas do que o previsto no segmento 'E'!"_t),
                              fundamentos);
        break;
    default:
        guia.guardar(letra, registro);
        break;
    }
}

} // namespace quilatador
