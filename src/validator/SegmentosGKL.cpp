#include "validator/Conferencia.h"

namespace quilatador {

namespace {

/// A definition that may stand several times, each with a number of its own: segments G and K.
struct Numerada {
    char segmento;
    VistaTexto campo;                  ///< its number
    std::optional<std::int32_t> linha; ///< of its errors; none for the record's own
    VistaTexto rotulo;
    Assunto faixa;
    VistaTexto mensagemDaFaixa;
    VistaTexto idDaDescricao;
    VistaTexto mensagemDaDescricao;
    Assunto duplicada;
    VistaTexto mensagemDaDuplicada;
};

/// Checks one, keeps it among those accepted and echoes it.
void verificarNumerada(const Numerada& regra, Depurador& depurador, const RegistroRemessa& registro,
                       std::vector<RegistroRemessa>& aceitas) {
    Conferencia c(depurador, registro, regra.segmento);
    const Valor numero = c.valor(regra.campo);

    // No number is both below 1 and above 9, so the range is not enforced: kept on purpose, the sample
    // g-codigo-fora-da-faixa holds it.
    const bool foraDaFaixa = menor(numero, 1) && maior(numero, 9);
    if (foraDaFaixa) c.erro(regra.faixa, regra.mensagemDaFaixa, regra.linha);

    if (semConteudo(c.valor("Denominacao")))
        c.erro({regra.idDaDescricao, "Denominacao"}, regra.mensagemDaDescricao, regra.linha);
    if (foraDaFaixa) return;

    bool duplicada = false;
    for (const RegistroRemessa& aceita : aceitas) {
        if (!igual(aceita.getValorCampo(regra.campo), numero)) continue;
        c.erro(regra.duplicada, regra.mensagemDaDuplicada, regra.linha);
        duplicada = true;
    }
    if (duplicada) return;

    aceitas.push_back(registro.copia());
    c.eco(regra.rotulo, junta(c.texto(regra.campo), " : ", c.valor("Denominacao").texto()));
}

} // namespace

void Depurador::verificarSegmentoG(const RegistroRemessa& registro) {
    // The errors carry line 0, not the record's: kept on purpose, the sample g-codigo-duplicado holds it.
    verificarNumerada({.segmento = 'G',
                       .campo = "Codigo",
                       .linha = 0,
                       .rotulo = "Caracterist. ",
                       .faixa = {"g.codigo.foraDaFaixa", "Codigo"},
                       .mensagemDaFaixa = "Codigo da caracteristica deve ficar entre 1 e 9",
                       .idDaDescricao = "g.denominacao.ausente",
                       .mensagemDaDescricao = "Denominação da característica deve ser informada"_t,
                       .duplicada = {"g.codigo.duplicado", "Codigo"},
                       .mensagemDaDuplicada = "Codigo da caracteristica ja informado"},
                      *this, registro, execucao_.caracteristicas);
}

void Depurador::verificarSegmentoK(const RegistroRemessa& registro) {
    verificarNumerada({.segmento = 'K',
                       .campo = "Numero",
                       .linha = std::nullopt,
                       .rotulo = "Receita      ",
                       .faixa = {"k.numero.foraDaFaixa", "Numero"},
                       .mensagemDaFaixa = "Número da receita deve ficar entre 1 e 9"_t,
                       .idDaDescricao = "k.denominacao.ausente",
                       .mensagemDaDescricao = "Descrição da receita deve ser informada"_t,
                       .duplicada = {"k.numero.duplicado", "Numero"},
                       .mensagemDaDuplicada = "Numero de receita ja informado"},
                      *this, registro, execucao_.receitas);
}

void Depurador::verificarSegmentoL(const RegistroRemessa& registro) {
    Conferencia c(*this, registro, 'L');
    bool rejeitada = false;
    const auto rejeitar = [&](const Assunto& assunto, VistaTexto mensagem) {
        c.erro(assunto, mensagem);
        rejeitada = true;
    };

    const Valor tipo = c.valor("TipoPag");
    if (foraDe(tipo, "ACP")) rejeitar({"l.tipoPag.invalido", "TipoPag"}, "Tipo de pagamento inválido"_t);

    if (!igual(tipo, "C")) {
        if (igual(c.valor("NroPag"), 0))
            rejeitar({"l.nroPag.ausente", "NroPag"}, "Número do pagamento não informado"_t);
    } else if (c.texto("NroPag") != "00") {
        rejeitar({"l.nroPag.cotaUnica", "NroPag", "00"}, "Tipo de pagamento cota unica exige numero de pagamento 0");
    }

    if (menor(c.valor("DataVenc"), execucao_.hoje))
        c.erro({"l.dataVenc.vencida", "DataVenc"}, "Data de vencimento inválida ou inferior a atual"_t);
    c.exigir({"l.denominacao.ausente", "Denominacao"}, "Denominacao do pagamento nao informado");
    if (rejeitada) return;

    const Valor numero = c.valor("NroPag");
    for (const RegistroRemessa& opcao : execucao_.opcoesPagamento)
        if (igual(opcao.getValorCampo("TipoPag"), tipo) && igual(opcao.getValorCampo("NroPag"), numero))
            rejeitar({"l.opcao.duplicada", "NroPag"}, "Tipo e numero de parcela duplicados");
    if (rejeitada) return;

    execucao_.opcoesPagamento.push_back(registro.copia());
    c.eco("Opcao Pag. ", junta(c.texto("TipoPag"), c.texto("NroPag"), " : ", c.valor("DataVenc").texto(), " - ",
                               c.valor("Denominacao").texto()));
}

} // namespace quilatador
