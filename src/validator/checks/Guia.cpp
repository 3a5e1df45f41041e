#include "validator/checks/Guia.h"

#include "common/Diversos.h"
#include "common/Numero.h"
#include "validator/checks/Parcelas.h"

#include <cmath>

namespace quilatador {

namespace {

/// Revenues and characteristics are numbered from 1 to 9.
constexpr int maiorNumero = 9;
/// The largest accepted difference between the sum of the revenues and the slip's total, in the unit of the layout's
/// amounts.
constexpr double toleranciaDaSoma = 1;

std::int64_t sequencialDe(const RegistroRemessa& registro) {
    return numeroDoCampo(registro, &Valor::paraContagem, "Sequencial"_t);
}

/// Checks the amount and the rate of a revenue, and returns what it adds to the slip's amount: 0 if the rate is wrong.
/// `FormaCalculo` is read only for a rate, so that one that cannot be read does not hide what stands before it.
double verificarReceita(Conferencia& c, int qual, const Definicao& definicao) {
    const Texto numero = textoDe(qual);
    const Texto campoDoValor = junta("ValorRec"_t, numero);
    const Valor valor = c.valor(campoDoValor);
    if (menor(valor, 0))
        c.erro({"u.valorRec.negativo"_t, campoDoValor}, junta("Campo Valor da Receita "_t, numero, " inválido"_t));
    else if (maior(valor, 0) && !definicao.receitas.contem({{"Numero"_t, qual}}))
        c.erro({"u.valorRec.semReceita"_t, campoDoValor},
               junta("Campo Valor da Receita "_t, numero, " informado mas receita não informada no segmento K"_t));

    const Texto campoDaAliquota = junta("Aliquota"_t, numero);
    const Valor aliquota = c.valor(campoDaAliquota);
    if (igual(aliquota, 0)) return c.numero(&Valor::paraDuplo, campoDoValor);
    if (menor(aliquota, 0)) {
        c.erro({"u.aliquota.negativa"_t, campoDaAliquota},
               junta("Campo Aliquota da Receita "_t, numero, " inválido"_t));
        return 0;
    }
    if (!maior(aliquota, 0)) return 0;
    if (igual(c.valorDe(definicao.registroE, "FormaCalculo"_t), "T"_t)) {
        c.erro({"u.aliquota.porValorTotal"_t, campoDaAliquota},
               junta("Campo Aliquota da Receita "_t, numero, " não pode ser informado para cálculo por valor total"_t));
        return 0;
    }
    return c.numero(&Valor::paraDuplo, campoDoValor) * c.numero(&Valor::paraDuplo, campoDaAliquota) / 100;
}

} // namespace

bool verificarGuia(Rodada& rodada, const GuiaEmMaos& guia, const Definicao& definicao) {
    const RegistroRemessa& registroS = guia.registroS();
    bool aceita = verificarIdentificacaoGuia(rodada, registroS, definicao);
    aceita = verificarSegmentoT(rodada, guia.registroT(), registroS) && aceita;
    aceita = verificarSegmentoU(rodada, guia.registroU(), registroS, definicao) && aceita;
    aceita = verificarObjeto(rodada, guia.registroV(), registroS, definicao.temSegmentoF) && aceita;
    aceita = verificarSegmentoW(rodada, guia.registroW(), registroS, definicao.caracteristicas) && aceita;
    aceita = verificarSegmentoX(rodada, guia.mensagensX()) && aceita;
    return verificarSegmentoY(rodada, guia.parcelasY(), definicao) && aceita;
}

bool verificarIdentificacaoGuia(Rodada& rodada, const RegistroRemessa& registroS, const Definicao& definicao) {
    Conferencia c(rodada, registroS, 'S', Conferencia::AoFalhar::Prosseguir);

    c.exigirNaoZero({"s.idGuia.invalida"_t, "IdGuia"_t}, "Identificacao da guia não informada ou não numérica"_t);
    c.exigirNaoZero({"s.nroOpcoesPag.invalido"_t, "nroOpcoesPag"_t},
                    "Número total de opcoes de pagamento não informado ou não numérico"_t);
    if (maior(c.valor("Parcelamento"_t), c.valorDe(definicao.registroE, "Parcelamento"_t)))
        c.erro({"s.parcelamento.excedido"_t, "Parcelamento"_t},
               "Parcelamento do recebimento excede o previsto no segmento 'E'"_t);

    const Texto total = c.texto("ValorTotal"_t);
    if (!Diversos::TodoNumerico(total) || !soDigitos(total))
        c.erro({"s.valorTotal.invalido"_t, "ValorTotal"_t}, "Valor inválido no recebimento"_t);

    const Valor endereco = c.valor("indEndereco"_t);
    if (diferente(endereco, "O"_t)) {
        if (diferente(endereco, "C"_t))
            c.erro({"s.indEndereco.invalido"_t, "indEndereco"_t}, "Indicador de endereço inválido"_t);
    } else if (!definicao.temSegmentoF) {
        c.erro({"s.indEndereco.semObjeto"_t, "indEndereco"_t},
               "Segmento 'F' não informado. Indicador de endereço não pode ser 'O'"_t);
    }

    // A failure in any earlier field of this record also makes both dates invalid, because `falhou` is never reset:
    // kept on purpose, the sample s-id-guia-nao-numerica holds it.
    const Valor emissao = c.valor("DataEmissao"_t);
    if (!emissao.nulo() && c.falhou())
        c.erro({"s.dataEmissao.invalida"_t, c.campoNaoLido("DataEmissao"_t)}, "Data de emissão da guia inválida"_t);
    const Valor validade = c.valor("DataValidade"_t);
    if (!validade.nulo() && c.falhou())
        c.erro({"s.dataValidade.invalida"_t, c.campoNaoLido("DataValidade"_t)}, "Data de validade da guia inválida"_t);
    return c.aprovada();
}

bool verificarSegmentoT(Rodada& rodada, const RegistroRemessa& registroT, const RegistroRemessa& registroS) {
    Conferencia c(rodada, registroT, 'T', Conferencia::AoFalhar::Prosseguir);
    if (registroT.linha().empty()) {
        // The text names segment 'S' although 'T' is missing: kept on purpose.
        c.erro({"t.ausente"_t}, "Registro 'S' - cliente - não informado"_t, 0);
        return false;
    }
    c.exigir({"t.nome.ausente"_t, "Nome"_t}, "Nome do cliente/contribuinte não informado"_t);
    if (igual(c.valorDe(registroS, "indEndereco"_t), "C"_t)) {
        c.exigir({"t.endereco.ausente"_t, "Endereco"_t}, "Endereco do cliente/contribuinte deve ser informado"_t);
        c.exigirNaoZero({"t.cep.ausente"_t, "CEP"_t}, "CEP do cliente/contribuinte deve ser informado"_t);
        c.exigir({"t.cidade.ausente"_t, "Cidade"_t}, "Cidade do cliente/contribuinte deve ser informada"_t);
        c.exigir({"t.uf.ausente"_t, "UF"_t}, "UF do cliente/contribuinte deve ser informada"_t);
    }
    return c.aprovada();
}

bool verificarSegmentoU(Rodada& rodada, const RegistroRemessa& registroU, const RegistroRemessa& registroS,
                        const Definicao& definicao) {
    Conferencia c(rodada, registroU, 'U');
    if (registroU.linha().empty()) {
        c.erro({"u.ausente"_t}, "Registro 'U' - composição - não informado"_t, 0);
        return false;
    }
    double soma = 0;
    for (int i = 1; i <= maiorNumero; ++i)
        soma += verificarReceita(c, i, definicao);
    if (std::fabs(soma - numeroDoCampo(registroS, &Valor::paraDuplo, "ValorTotal"_t)) > toleranciaDaSoma)
        c.erro({"u.soma.diferente"_t, "ValorRec1"_t},
               "Soma dos valores das receitas difere do valor total do recebimento"_t);
    return c.aprovada();
}

bool verificarObjeto(Rodada& rodada, const RegistroRemessa& registroV, const RegistroRemessa& registroS,
                     bool temSegmentoF) {
    Conferencia c(rodada, registroV, 'V');
    if (!temSegmentoF) {
        if (!registroV.linha().empty()) c.erro({"v.semSegmentoF"_t}, "Registro 'V' informado sem registro 'F'"_t);
        return c.aprovada();
    }
    if (registroV.linha().empty()) {
        c.erro({"v.ausente"_t}, "Registro 'V' - objeto - não informado"_t, sequencialDe(registroS));
        return false;
    }
    if (semConteudo(c.valor("Identificacao"_t)) && semConteudo(c.valor("Descricao"_t)) &&
        semConteudo(c.valor("Endereco"_t)))
        c.erro({"v.objeto.ausente"_t, "Identificacao"_t},
               "Umdos campos identificação, descrição ou localização do objeto deve ser informado"_t);
    if (igual(c.valorDe(registroS, "indEndereco"_t), "O"_t)) {
        c.exigir({"v.endereco.ausente"_t, "Endereco"_t}, "Localização do objeto deve ser informada"_t);
        c.exigirNaoZero({"v.cep.ausente"_t, "CEP"_t}, "CEP da localização do objeto deve ser informado"_t);
        c.exigir({"v.cidade.ausente"_t, "Cidade"_t}, "Cidade da localização do objeto deve ser informada"_t);
        c.exigir({"v.uf.ausente"_t, "UF"_t}, "UF da localização do objeto deve ser informada"_t);
    }
    return c.aprovada();
}

bool verificarSegmentoW(Rodada& rodada, const RegistroRemessa& registroW, const RegistroRemessa& registroS,
                        const RegistrosGuardados& caracteristicas) {
    Conferencia c(rodada, registroW, 'W');
    if (registroW.linha().empty()) {
        c.erro({"w.ausente"_t}, "Registro 'W' - características do objeto - não informado"_t, sequencialDe(registroS));
        return false;
    }
    for (int i = 1; i <= maiorNumero; ++i) {
        const Texto numero = textoDe(i);
        const Texto campo = junta("Caract"_t, numero);
        if (comConteudo(c.valor(campo)) && !caracteristicas.contem({{"Codigo"_t, i}}))
            c.erro({"w.caract.naoDefinida"_t, campo},
                   junta("Campo Conteúdo da característica "_t, numero,
                         " informado mas característica não informada no segmento G"_t));
    }
    return c.aprovada();
}

// The text speaks of three records, but a fourth one is accepted if its third message is empty: kept on purpose, the
// sample x-quarta-com-mensagem-3 holds it.
bool verificarSegmentoX(Rodada& rodada, std::span<const RegistroRemessa> mensagensX) {
    constexpr std::size_t recusada = 5;
    if (mensagensX.size() >= recusada) {
        Conferencia c(rodada, mensagensX[recusada - 1], 'X');
        c.erro({"x.maximo.excedido"_t}, "Devem ser informados no máximo 3 registros do segmento X"_t);
        return false;
    }
    const RegistroRemessa& quarta = mensagensX[recusada - 2];
    if (quarta.linha().empty()) return true;
    Conferencia c(rodada, quarta, 'X');
    if (comConteudo(c.valor("Mensagem3"_t)))
        c.erro({"x.mensagem3.informada"_t, "Mensagem3"_t},
               "O quarto registro do segmento X não pode ter conteúdo no campo Mensagem 3"_t);
    return c.aprovada();
}

} // namespace quilatador
