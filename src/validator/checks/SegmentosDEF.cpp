#include "validator/checks/SegmentosDEF.h"

#include <array>

namespace quilatador {

namespace {

constexpr VistaTexto tiposDeIdentificador = "AN"_t;
/// The revision of the layout in which segment E has two indicators.
constexpr VistaTexto versaoDosIndicadores = "1.00.01"_t;

/// In Febraban segment 6 the barcode contains the start of the company's CNPJ, which leaves less room for the
/// identifier.
int maiorTamanhoDeIdentificador(Conferencia& c, const Definicao& definicao) {
    return igual(c.valorEm(definicao.registroC, 'C', "SegFebraban"_t), 6) ? 13 : 17;
}

/// Checks the type of an identifier, which passes as long as it is contained in the list of the types.
void verificarTipoDeIdentificador(Conferencia& c, const Assunto& assunto, const Assunto& passagem,
                                  VistaTexto mensagem) {
    const Valor tipo = c.valor("TipoID"_t);
    if (foraDe(tipo, tiposDeIdentificador)) c.erro(assunto, mensagem);
    if (!tipo.nulo()) c.avisarSePassa(passagem, tipo.texto(), tiposDeIdentificador);
}

void verificarIdentificadorDoCliente(Conferencia& c, Definicao& definicao) {
    c.passo([&] {
        const Valor tamanho = c.valor("TamanhoID"_t);
        definicao.siglaIdentificador = c.valor("SiglaID"_t).texto();
        definicao.tamanhoIdentificador = tamanho;
    });
    c.passo([&] {
        const std::array textos{c.texto("SiglaID"_t), c.texto("Significado"_t), c.texto("TipoID"_t)};
        c.eco("Sigla ID       : "_t, textos[0]);
        c.eco("Signif. ID     : "_t, textos[1]);
        c.eco("Tipo ID        : "_t, textos[2]);
    });
    c.passo([&] {
        verificarTipoDeIdentificador(c, {"d.tipoID.invalido"_t, "TipoID"_t}, {"d.tipoID.naoConferido"_t, "TipoID"_t},
                                     "Tipo do identificador do contribuinte inválido"_t);
    });
    c.passo([&] { c.ecoDoTexto("Tamanho ID     : "_t, "TamanhoID"_t); });
    c.passo([&] {
        const Valor tamanho = c.valor("TamanhoID"_t);
        if (maior(tamanho, maiorTamanhoDeIdentificador(c, definicao)) || igual(tamanho, 0))
            c.erro({"d.tamanhoID.invalido"_t, "TamanhoID"_t}, "Tamanho do identificador do contribuinte inválido"_t);
    });
}

/// Reads the two indicators of what barcodes are checked for. Only "S" means yes; anything but "N" and "S" is an error.
void lerIndicadores(Conferencia& c, Definicao& definicao) {
    const auto ler = [&](const Assunto& assunto, VistaTexto rotulo, VistaTexto mensagem) {
        const Valor indicador = c.valor(assunto.campo);
        if (diferente(indicador, "N"_t) && diferente(indicador, "S"_t))
            c.erro(assunto, mensagem);
        else
            c.eco(rotulo, indicador.texto());
        return igual(indicador, "S"_t);
    };
    c.passo([&] {
        definicao.checarData = ler({"e.checarData.invalido"_t, "Checar data"_t}, "Checar data....: "_t,
                                   "Campo 'Checar data' não informado ou Inválido!"_t);
    });
    c.passo([&] {
        definicao.checarValor = ler({"e.checarValor.invalido"_t, "Checar valor"_t}, "Checar valor...: "_t,
                                    "Campo 'Checar valor' não informado ou Inválido!"_t);
    });
}

} // namespace

void verificarSegmentoD(Apontador& apontador, Definicao& definicao) {
    Conferencia c(apontador, definicao.registroD, 'D', Conferencia::AoFalhar::PularPasso);

    c.passo([&] {
        const Valor denominacao = c.valor("Denominacao"_t);
        c.ecoDoTexto("Denom.Cliente  : "_t, "Denominacao"_t);
        if (semConteudo(denominacao))
            c.erro({"d.denominacao.ausente"_t, "Denominacao"_t}, "Denominacao do cliente/contribuinte não informada"_t);
    });

    bool temSigla = false;
    c.passo([&] { temSigla = comConteudo(c.valor("SiglaID"_t)); });
    if (temSigla) verificarIdentificadorDoCliente(c, definicao);

    c.passo([&] {
        if (!comConteudo(c.valor("Transmitente"_t))) return;
        c.ecoDoTexto("Den.Transmit.  : "_t, "Transmitente"_t);
        definicao.temTransmitente = true;
    });
}

void verificarSegmentoE(Apontador& apontador, Definicao& definicao) {
    Conferencia c(apontador, definicao.registroE, 'E');
    const auto ecoSeHouver = [&](VistaTexto rotulo, VistaTexto campo) {
        c.passo([&] {
            if (comConteudo(c.valor(campo))) c.ecoDoTexto(rotulo, campo);
        });
    };
    const auto exigirComEco = [&](VistaTexto rotulo, const Assunto& assunto, VistaTexto mensagem) {
        c.passo([&] {
            c.ecoDoTexto(rotulo, assunto.campo);
            c.exigir(assunto, mensagem);
        });
    };

    exigirComEco("Nome Recebim.  : "_t, {"e.nome.ausente"_t, "Nome"_t}, "Campo 'Nome do recebimento' não informado"_t);
    exigirComEco("Sigla Recebim. : "_t, {"e.sigla.ausente"_t, "Sigla"_t},
                 "Campo 'Sigla do recebimento' não informada"_t);
    // The complement is echoed only if it is empty: kept on purpose, the sample e-complemento-informado holds it.
    c.passo([&] {
        if (semConteudo(c.valor("Complemento"_t))) c.ecoDoTexto("Compl.Recebim. : "_t, "Complemento"_t);
    });
    ecoSeHouver("Unidade conv.. : "_t, "UnidadeConv"_t);
    exigirComEco("Denom.Exercicio: "_t, {"e.denExercicio.ausente"_t, "DenExercicio"_t},
                 "Campo 'Denominacao do Exercicio' não informada"_t);
    exigirComEco("Exercicio      : "_t, {"e.exercicio.ausente"_t, "Exercicio"_t}, "Campo 'Exercicio' não informado"_t);
    c.passo([&] {
        c.ecoDoTexto("Opcoes pagam.  : "_t, "NroOpcoes"_t);
        c.exigirNaoZero({"e.nroOpcoes.zero"_t, "NroOpcoes"_t},
                        "Campo 'Numero total de opcoes de pagamento' não informado"_t);
    });
    c.passo([&] {
        c.ecoDoTexto("Parcelamento   : "_t, "Parcelamento"_t);
        if (menor(c.valor("Parcelamento"_t), 0))
            c.erro({"e.parcelamento.negativo"_t, "Parcelamento"_t},
                   "Campo 'Parcelamento do recebimento' não informado"_t);
    });
    exigirComEco("Tit.Composicao : "_t, {"e.titComposicao.ausente"_t, "TitComposicao"_t},
                 "Campo 'Titulo da composicao do recebimento' não informado"_t);
    ecoSeHouver("Den.Sequencial : "_t, "DenSequencial"_t);

    if (versaoComIndicadores(definicao)) lerIndicadores(c, definicao);
}

bool versaoComIndicadores(const Definicao& definicao) {
    const Texto versao = definicao.registroA.getValorCampoString("VersaoLayout"_t);
    return trecho(versao, 1, versaoDosIndicadores.size()) == versaoDosIndicadores;
}

void verificarSegmentoF(Apontador& apontador, Definicao& definicao) {
    Conferencia c(apontador, definicao.registroF, 'F');
    definicao.temSegmentoF = true;

    c.passo([&] {
        c.ecoDoTexto("Den.Objeto Guia: "_t, "Denominacao"_t);
        c.exigir({"f.denominacao.ausente"_t, "Denominacao"_t}, "Campo 'Denominacao do objeto na guia' não informado"_t);
    });

    bool temSigla = false;
    c.passo([&] { temSigla = comConteudo(c.valor("SiglaID"_t)); });
    if (temSigla) {
        c.passo([&] {
            c.ecoDoTexto("Sigla ID  Obj. : "_t, "SiglaID"_t);
            c.ecoDoTexto("Signif. ID Obj.: "_t, "SignificadoID"_t);
            c.ecoDoTexto("Tipo ID Obj    : "_t, "TipoID"_t);
            verificarTipoDeIdentificador(c, {"f.tipoID.invalido"_t, "TipoID"_t},
                                         {"f.tipoID.naoConferido"_t, "TipoID"_t},
                                         "Tipo do identificador do objeto inválido"_t);
        });
        c.passo([&] {
            c.ecoDoTexto("Tamanho ID     : "_t, "TamanhoID"_t);
            const Valor tamanho = c.valor("TamanhoID"_t);
            if (maior(tamanho, maiorTamanhoDeIdentificador(c, definicao)) || igual(tamanho, 0))
                c.erro({"f.tamanhoID.invalido"_t, "TamanhoID"_t}, "Tamanho do identificador do objeto inválido"_t);
        });
    }

    c.passo([&] {
        if (comConteudo(c.valor("TitulOCaract"_t))) c.ecoDoTexto("Tit.Caract.Obj.: "_t, "TituloCaract"_t);
    });
}

} // namespace quilatador
