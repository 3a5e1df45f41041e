#include "validator/checks/SegmentosGKL.h"

namespace quilatador {

namespace {

/// The rules of a definition that may occur several times, each time with a number of its own: segments G and K.
struct Numerada {
    char segmento;
    VistaTexto campo;                  ///< name of the field with that number
    std::optional<std::int64_t> linha; ///< line number of its errors; if empty, the record's own
    VistaTexto rotulo;
    Assunto faixa;
    Assunto semFaixa; ///< the notice where a number is out of range, which no error says
    VistaTexto mensagemDaFaixa;
    VistaTexto idDaDescricao;
    VistaTexto mensagemDaDescricao;
    Assunto duplicada;
    VistaTexto mensagemDaDuplicada;
};

void guardar(RegistrosGuardados& aceitas, const RegistroRemessa& registro) {
    if (!aceitas.temTipo()) aceitas = RegistrosGuardados(registro.copia());
    aceitas.guardar(registro);
}

/// Whether a number is out of range. No number is both below 1 and above 9, so the range is not enforced: kept on
/// purpose, the sample g-codigo-fora-da-faixa holds it.
bool recusarPelaFaixa(const Numerada& regra, Conferencia& c, const Valor& numero) {
    const bool foraDaFaixa = menor(numero, 1) && maior(numero, 9);
    if (foraDaFaixa) c.erro(regra.faixa, regra.mensagemDaFaixa, regra.linha);
    if (menor(numero, 1) || maior(numero, 9))
        c.aviso(regra.semFaixa, "Número fora da faixa de 1 a 9, que o log aceita; nenhuma guia chega a usá-lo"_t);
    return foraDaFaixa;
}

/// Checks a record. It is kept and echoed unless its number is out of range or already taken.
void verificarNumerada(const Numerada& regra, Apontador& apontador, const RegistroRemessa& registro,
                       RegistrosGuardados& aceitas) {
    Conferencia c(apontador, registro, regra.segmento);
    bool foraDaFaixa = false;
    c.passo([&] { foraDaFaixa = recusarPelaFaixa(regra, c, c.valor(regra.campo)); });
    c.passo([&] {
        if (semConteudo(c.valor("Denominacao"_t)))
            c.erro({regra.idDaDescricao, "Denominacao"_t}, regra.mensagemDaDescricao, regra.linha);
    });
    if (foraDaFaixa) return;

    c.passo([&] {
        const Valor numero = c.valor(regra.campo);
        c.apoiar("IDRegistro"_t); // a record that is there twice has a wrong one as well
        // No two of those accepted are equal, so that a number is the duplicate of one at most.
        if (aceitas.contem({{regra.campo, numero}}))
            return c.erro(regra.duplicada, regra.mensagemDaDuplicada, regra.linha);
        guardar(aceitas, registro);
        c.eco(regra.rotulo, junta(c.texto(regra.campo), " : "_t, c.valor("Denominacao"_t).texto()));
    });
}

} // namespace

void verificarSegmentoG(Apontador& apontador, const RegistroRemessa& registro, Definicao& definicao) {
    // The errors carry line 0, not the record's: kept on purpose, the sample g-codigo-duplicado holds it.
    verificarNumerada({.segmento = 'G',
                       .campo = "Codigo"_t,
                       .linha = 0,
                       .rotulo = "Caracterist. "_t,
                       .faixa = {"g.codigo.foraDaFaixa"_t, "Codigo"_t},
                       .semFaixa = {"g.codigo.naoConferido"_t, "Codigo"_t},
                       .mensagemDaFaixa = "Codigo da caracteristica deve ficar entre 1 e 9"_t,
                       .idDaDescricao = "g.denominacao.ausente"_t,
                       .mensagemDaDescricao = "Denominação da característica deve ser informada"_t,
                       .duplicada = {"g.codigo.duplicado"_t, "Codigo"_t},
                       .mensagemDaDuplicada = "Codigo da caracteristica ja informado"_t},
                      apontador, registro, definicao.caracteristicas);
}

void verificarSegmentoK(Apontador& apontador, const RegistroRemessa& registro, Definicao& definicao) {
    verificarNumerada({.segmento = 'K',
                       .campo = "Numero"_t,
                       .linha = std::nullopt,
                       .rotulo = "Receita      "_t,
                       .faixa = {"k.numero.foraDaFaixa"_t, "Numero"_t},
                       .semFaixa = {"k.numero.naoConferido"_t, "Numero"_t},
                       .mensagemDaFaixa = "Número da receita deve ficar entre 1 e 9"_t,
                       .idDaDescricao = "k.denominacao.ausente"_t,
                       .mensagemDaDescricao = "Descrição da receita deve ser informada"_t,
                       .duplicada = {"k.numero.duplicado"_t, "Numero"_t},
                       .mensagemDaDuplicada = "Numero de receita ja informado"_t},
                      apontador, registro, definicao.receitas);
}

void verificarSegmentoL(Apontador& apontador, const RegistroRemessa& registro, Definicao& definicao) {
    constexpr VistaTexto tiposDePagamento = "ACP"_t;
    Conferencia c(apontador, registro, 'L');
    bool rejeitada = false;
    const auto rejeitar = [&](const Assunto& assunto, VistaTexto mensagem) {
        c.erro(assunto, mensagem);
        rejeitada = true;
    };

    c.passo([&] {
        const Valor tipo = c.valor("TipoPag"_t);
        if (foraDe(tipo, tiposDePagamento))
            rejeitar({"l.tipoPag.invalido"_t, "TipoPag"_t}, "Tipo de pagamento inválido"_t);
        c.avisarSePassa({"l.tipoPag.naoConferido"_t, "TipoPag"_t}, tipo.texto(), tiposDePagamento);
    });
    c.passo([&] {
        if (!igual(c.valor("TipoPag"_t), "C"_t)) {
            if (igual(c.valor("NroPag"_t), 0))
                rejeitar({"l.nroPag.ausente"_t, "NroPag"_t}, "Número do pagamento não informado"_t);
        } else if (c.texto("NroPag"_t) != "00"_t) {
            rejeitar({"l.nroPag.cotaUnica"_t, "NroPag"_t, Texto("00"_t)},
                     "Tipo de pagamento cota unica exige numero de pagamento 0"_t);
        }
    });
    c.passo([&] {
        const Valor vencimento = c.valor("DataVenc"_t);
        if (menor(vencimento, c.hoje()))
            c.erro({"l.dataVenc.vencida"_t, "DataVenc"_t}, "Data de vencimento inválida ou inferior a atual"_t);
        if (vencimento.nulo())
            c.aviso({"l.dataVenc.naoConferida"_t, "DataVenc"_t},
                    "Opção de pagamento sem data, que o log não compara"_t);
    });
    c.exigir({"l.denominacao.ausente"_t, "Denominacao"_t}, "Denominacao do pagamento nao informado"_t);
    if (rejeitada) return;

    c.passo([&] {
        // The first option has nothing to be compared with, so that nobody needs its number here.
        RegistrosGuardados& opcoes = definicao.opcoesPagamento;
        c.apoiar("IDRegistro"_t);
        if (!opcoes.vazia() && opcoes.contem({{"TipoPag"_t, c.valor("TipoPag"_t)}, {"NroPag"_t, c.valor("NroPag"_t)}}))
            return c.erro({"l.opcao.duplicada"_t, "NroPag"_t}, "Tipo e numero de parcela duplicados"_t);

        guardar(opcoes, registro);
        c.eco("Opcao Pag. "_t, junta(c.texto("TipoPag"_t), c.texto("NroPag"_t), " : "_t, c.valor("DataVenc"_t).texto(),
                                     " - "_t, c.valor("Denominacao"_t).texto()));
    });
}

} // namespace quilatador
