#include "validator/Conferencia.h"

#include <array>

namespace quilatador {

namespace {

constexpr VistaTexto tiposDeIdentificador = "AN";
/// The revision of the layout that has the two indicators of segment E.
constexpr VistaTexto versaoDosIndicadores = "1.00.01";

} // namespace

void Depurador::verificarSegmentoD() {
    Conferencia c(*this, execucao_.registroD, 'D', Conferencia::AoFalhar::PularPasso);

    c.passo([&] {
        const Valor denominacao = c.valor("Denominacao");
        c.ecoDoTexto("Denom.Cliente  : ", "Denominacao");
        if (semConteudo(denominacao))
            c.erro({"d.denominacao.ausente", "Denominacao"}, "Denominacao do cliente/contribuinte não informada"_t);
    });

    bool temSigla = false;
    c.passo([&] { temSigla = comConteudo(c.valor("SiglaID")); });
    if (temSigla) verificarIdentificadorDoCliente(c);

    c.passo([&] {
        if (!comConteudo(c.valor("Transmitente"))) return;
        c.ecoDoTexto("Den.Transmit.  : ", "Transmitente");
        execucao_.temTransmitente = true;
    });
}

void Depurador::verificarIdentificadorDoCliente(Conferencia& c) {
    c.passo([&] {
        const Valor tamanho = c.valor("TamanhoID");
        execucao_.siglaIdentificador = c.valor("SiglaID").texto();
        execucao_.tamanhoIdentificador = tamanho;
    });
    c.passo([&] {
        const std::array textos{c.texto("SiglaID"), c.texto("Significado"), c.texto("TipoID")};
        c.eco("Sigla ID       : ", textos[0]);
        c.eco("Signif. ID     : ", textos[1]);
        c.eco("Tipo ID        : ", textos[2]);
    });
    c.passo([&] {
        if (foraDe(c.valor("TipoID"), tiposDeIdentificador))
            c.erro({"d.tipoID.invalido", "TipoID"}, "Tipo do identificador do contribuinte inválido"_t);
    });
    c.passo([&] { c.ecoDoTexto("Tamanho ID     : ", "TamanhoID"); });
    c.passo([&] {
        const Valor tamanho = c.valor("TamanhoID");
        if (maior(tamanho, maiorTamanhoDeIdentificador()) || igual(tamanho, 0))
            c.erro({"d.tamanhoID.invalido", "TamanhoID"}, "Tamanho do identificador do contribuinte inválido"_t);
    });
}

/// The barcode of segment 6 has the company's CNPJ in it, which leaves less room for the payer's identifier.
int Depurador::maiorTamanhoDeIdentificador() const {
    return igual(execucao_.registroC.getValorCampo("SegFebraban"), 6) ? 13 : 17;
}

void Depurador::verificarSegmentoE() {
    Conferencia c(*this, execucao_.registroE, 'E');
    const auto ecoSeHouver = [&](VistaTexto rotulo, VistaTexto campo) {
        if (comConteudo(c.valor(campo))) c.ecoDoTexto(rotulo, campo);
    };

    c.ecoDoTexto("Nome Recebim.  : ", "Nome");
    c.exigir({"e.nome.ausente", "Nome"}, "Campo 'Nome do recebimento' não informado"_t);

    c.ecoDoTexto("Sigla Recebim. : ", "Sigla");
    c.exigir({"e.sigla.ausente", "Sigla"}, "Campo 'Sigla do recebimento' não informada"_t);

    // Written only for an empty complement: kept on purpose, the sample e-complemento-informado holds it.
    if (semConteudo(c.valor("Complemento"))) c.ecoDoTexto("Compl.Recebim. : ", "Complemento");
    ecoSeHouver("Unidade conv.. : ", "UnidadeConv");

    c.ecoDoTexto("Denom.Exercicio: ", "DenExercicio");
    c.exigir({"e.denExercicio.ausente", "DenExercicio"}, "Campo 'Denominacao do Exercicio' não informada"_t);

    c.ecoDoTexto("Exercicio      : ", "Exercicio");
    c.exigir({"e.exercicio.ausente", "Exercicio"}, "Campo 'Exercicio' não informado"_t);

    c.ecoDoTexto("Opcoes pagam.  : ", "NroOpcoes");
    c.exigirNaoZero({"e.nroOpcoes.zero", "NroOpcoes"}, "Campo 'Numero total de opcoes de pagamento' não informado"_t);

    c.ecoDoTexto("Parcelamento   : ", "Parcelamento");
    if (menor(c.valor("Parcelamento"), 0))
        c.erro({"e.parcelamento.negativo", "Parcelamento"}, "Campo 'Parcelamento do recebimento' não informado"_t);

    c.ecoDoTexto("Tit.Composicao : ", "TitComposicao");
    c.exigir({"e.titComposicao.ausente", "TitComposicao"},
             "Campo 'Titulo da composicao do recebimento' não informado"_t);
    ecoSeHouver("Den.Sequencial : ", "DenSequencial");

    if (!versaoComIndicadores()) return;
    const auto lerIndicador = [&](const Assunto& assunto, VistaTexto rotulo, VistaTexto mensagem) {
        const Valor indicador = c.valor(assunto.campo);
        if (diferente(indicador, "N") && diferente(indicador, "S"))
            c.erro(assunto, mensagem);
        else
            c.eco(rotulo, indicador.texto());
        return igual(indicador, "S");
    };
    execucao_.checarData = lerIndicador({"e.checarData.invalido", "Checar data"},
                                        "Checar data....: ", "Campo 'Checar data' não informado ou Inválido!"_t);
    execucao_.checarValor = lerIndicador({"e.checarValor.invalido", "Checar valor"},
                                         "Checar valor...: ", "Campo 'Checar valor' não informado ou Inválido!"_t);
}

bool Depurador::versaoComIndicadores() const {
    const Texto versao = execucao_.registroA.getValorCampoString("VersaoLayout");
    return trecho(versao, 1, versaoDosIndicadores.size()) == versaoDosIndicadores;
}

void Depurador::verificarSegmentoF() {
    Conferencia c(*this, execucao_.registroF, 'F');
    execucao_.temSegmentoF = true;

    c.ecoDoTexto("Den.Objeto Guia: ", "Denominacao");
    c.exigir({"f.denominacao.ausente", "Denominacao"}, "Campo 'Denominacao do objeto na guia' não informado"_t);

    if (comConteudo(c.valor("SiglaID"))) {
        c.ecoDoTexto("Sigla ID  Obj. : ", "SiglaID");
        c.ecoDoTexto("Signif. ID Obj.: ", "SignificadoID");
        c.ecoDoTexto("Tipo ID Obj    : ", "TipoID");
        if (foraDe(c.valor("TipoID"), tiposDeIdentificador))
            c.erro({"f.tipoID.invalido", "TipoID"}, "Tipo do identificador do objeto inválido"_t);
        c.ecoDoTexto("Tamanho ID     : ", "TamanhoID");
        const Valor tamanho = c.valor("TamanhoID");
        if (maior(tamanho, maiorTamanhoDeIdentificador()) || igual(tamanho, 0))
            c.erro({"f.tamanhoID.invalido", "TamanhoID"}, "Tamanho do identificador do objeto inválido"_t);
    }

    if (comConteudo(c.valor("TitulOCaract"))) c.ecoDoTexto("Tit.Caract.Obj.: ", "TituloCaract");
}

} // namespace quilatador
