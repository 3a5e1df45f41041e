#include "validator/checks/Guia.h"

#include "common/Diversos.h"
#include "common/Numero.h"
#include "validator/checks/Parcelas.h"

#include <array>
#include <cmath>

namespace quilatador {

namespace {

/// Revenues and characteristics are numbered from 1 to 9.
constexpr int maiorNumero = 9;
constexpr std::array camposDoValor{"ValorRec1"_t, "ValorRec2"_t, "ValorRec3"_t, "ValorRec4"_t, "ValorRec5"_t,
                                   "ValorRec6"_t, "ValorRec7"_t, "ValorRec8"_t, "ValorRec9"_t};
constexpr std::array camposDaAliquota{"Aliquota1"_t, "Aliquota2"_t, "Aliquota3"_t, "Aliquota4"_t, "Aliquota5"_t,
                                      "Aliquota6"_t, "Aliquota7"_t, "Aliquota8"_t, "Aliquota9"_t};
constexpr std::array camposDaCaracteristica{"Caract1"_t, "Caract2"_t, "Caract3"_t, "Caract4"_t, "Caract5"_t,
                                            "Caract6"_t, "Caract7"_t, "Caract8"_t, "Caract9"_t};

constexpr std::size_t indiceDe(int numero) noexcept {
    return static_cast<std::size_t>(numero) - 1;
}

/// The largest accepted difference between the sum of the revenues and the slip's total, in the unit of the layout's
/// amounts.
constexpr double toleranciaDaSoma = 1;

/// The line number of a finding about a record that the slip lacks: that of its record S. A complete check knows it
/// from the place of the slip.
std::optional<std::int64_t> linhaDaGuia(const Conferencia& c, const RegistroRemessa& registroS) {
    if (c.completa()) return std::nullopt;
    return numeroDoCampo(registroS, &Valor::paraContagem, "Sequencial"_t);
}

/// Checks the amount of a revenue, and returns it.
Valor verificarValorDaReceita(Conferencia& c, const CampoBuscado& buscado, int qual, const Definicao& definicao) {
    const VistaTexto campo = buscado.nome;
    const VistaTexto numero = ultimos(campo, 1);
    Valor valor = c.valor(buscado);
    if (menor(valor, 0))
        c.erro({"u.valorRec.negativo"_t, campo}, junta("Campo Valor da Receita "_t, numero, " inválido"_t));
    else if (maior(valor, 0) && c.temBase('K', definicao.receitas, {"Numero"_t}) &&
             !definicao.receitas.contem({{"Numero"_t, qual}}))
        c.erro({"u.valorRec.semReceita"_t, campo},
               junta("Campo Valor da Receita "_t, numero, " informado mas receita não informada no segmento K"_t));
    return valor;
}

/// The amount of a revenue, which the step before has read nearly always.
double valorDaReceita(Conferencia& c, const CampoBuscado& campo, const Valor& lido) {
    const double* const numero = lido.comoNumero();
    if (!numero) return c.numero(&Valor::paraDuplo, campo);
    c.apoiar(campo.campo);
    return *numero;
}

/// Checks the rate of a revenue, and returns what the revenue adds to the slip's amount: 0 if the rate is wrong.
/// `FormaCalculo` is read only for a rate, so that one that cannot be read does not hide what stands before it.
double verificarAliquota(Conferencia& c, const CampoBuscado& campoDoValor, const Valor& lido, int qual,
                         const Definicao& definicao) {
    const CampoBuscado buscado(c.registro(), camposDaAliquota[indiceDe(qual)]);
    const VistaTexto campo = buscado.nome;
    const VistaTexto numero = ultimos(campo, 1);
    const Valor aliquota = c.valor(buscado);
    if (igual(aliquota, 0)) return valorDaReceita(c, campoDoValor, lido);
    if (menor(aliquota, 0)) {
        c.erro({"u.aliquota.negativa"_t, campo}, junta("Campo Aliquota da Receita "_t, numero, " inválido"_t));
        return 0;
    }
    if (!maior(aliquota, 0)) return 0;
    if (igual(c.valorEm(definicao.registroE, 'E', "FormaCalculo"_t), "T"_t)) {
        c.erro({"u.aliquota.porValorTotal"_t, campo},
               junta("Campo Aliquota da Receita "_t, numero, " não pode ser informado para cálculo por valor total"_t));
        return 0;
    }
    return valorDaReceita(c, campoDoValor, lido) * c.numero(&Valor::paraDuplo, buscado) / 100;
}

/// Why the rule is disputed that every slip has a record W: "" if it is not.
VistaTexto motivoDoSegmentoW(const RegistrosGuardados& caracteristicas) {
    return caracteristicas.vazia()
               ? "nenhum segmento G define características, de modo que o registro W não teria o que dizer"_t
               : VistaTexto();
}

} // namespace

bool verificarGuia(Apontador& apontador, const GuiaEmMaos& guia, const Definicao& definicao) {
    const RegistroRemessa& registroS = guia.registroS();
    bool aceita = true;
    const auto verificar = [&](char letra, auto segmento) {
        if (!apontador.naoConferido(letra)) aceita = segmento() && aceita;
    };
    verificar('S', [&] { return verificarIdentificacaoGuia(apontador, registroS, definicao); });
    verificar('T', [&] { return verificarSegmentoT(apontador, guia.registroT(), registroS); });
    verificar('U', [&] { return verificarSegmentoU(apontador, guia.registroU(), registroS, definicao); });
    verificar('V', [&] { return verificarObjeto(apontador, guia.registroV(), registroS, definicao.temSegmentoF); });
    verificar('W',
              [&] { return verificarSegmentoW(apontador, guia.registroW(), registroS, definicao.caracteristicas); });
    verificar('X', [&] { return verificarSegmentoX(apontador, guia.mensagensX()); });
    verificar('Y', [&] { return verificarSegmentoY(apontador, guia.parcelasY(), definicao); });
    return aceita;
}

bool verificarIdentificacaoGuia(Apontador& apontador, const RegistroRemessa& registroS, const Definicao& definicao) {
    Conferencia c(apontador, registroS, 'S', Conferencia::AoFalhar::Prosseguir);

    c.exigirNaoZero({"s.idGuia.invalida"_t, "IdGuia"_t}, "Identificacao da guia não informada ou não numérica"_t);
    c.exigirNaoZero({"s.nroOpcoesPag.invalido"_t, "nroOpcoesPag"_t},
                    "Número total de opcoes de pagamento não informado ou não numérico"_t);
    c.passo([&] {
        if (maior(c.valor("Parcelamento"_t), c.valorEm(definicao.registroE, 'E', "Parcelamento"_t)))
            c.erro({"s.parcelamento.excedido"_t, "Parcelamento"_t},
                   "Parcelamento do recebimento excede o previsto no segmento 'E'"_t);
    });
    c.passo([&] {
        const Texto total = c.texto("ValorTotal"_t);
        if (!Diversos::TodoNumerico(total) || !soDigitos(total))
            c.erro({"s.valorTotal.invalido"_t, "ValorTotal"_t}, "Valor inválido no recebimento"_t);
    });
    c.passo([&] {
        const Valor endereco = c.valor("indEndereco"_t);
        if (diferente(endereco, "O"_t)) {
            if (diferente(endereco, "C"_t))
                c.erro({"s.indEndereco.invalido"_t, "indEndereco"_t}, "Indicador de endereço inválido"_t);
        } else if (!definicao.temSegmentoF && c.temBase('F')) {
            c.erro({"s.indEndereco.semObjeto"_t, "indEndereco"_t},
                   "Segmento 'F' não informado. Indicador de endereço não pode ser 'O'"_t);
        }
    });

    // A failure in any earlier field of this record also makes both dates invalid, because `falhou` is never reset:
    // kept on purpose, the sample s-id-guia-nao-numerica holds it.
    const auto exigirData = [&](VistaTexto id, VistaTexto campo, VistaTexto mensagem) {
        c.passo([&] {
            const Valor data = c.valor(campo);
            if (!data.nulo() && c.falhou()) c.erro({id, c.campoNaoLido(campo)}, mensagem);
        });
    };
    exigirData("s.dataEmissao.invalida"_t, "DataEmissao"_t, "Data de emissão da guia inválida"_t);
    exigirData("s.dataValidade.invalida"_t, "DataValidade"_t, "Data de validade da guia inválida"_t);
    return c.aprovada();
}

bool verificarSegmentoT(Apontador& apontador, const RegistroRemessa& registroT, const RegistroRemessa& registroS) {
    Conferencia c(apontador, registroT, 'T', Conferencia::AoFalhar::Prosseguir);
    if (registroT.linha().empty()) {
        c.apoiarNoRegistro();
        // The text names segment 'S' although 'T' is missing: kept on purpose.
        c.erro({"t.ausente"_t}, "Registro 'S' - cliente - não informado"_t, 0);
        return false;
    }
    c.exigir({"t.nome.ausente"_t, "Nome"_t}, "Nome do cliente/contribuinte não informado"_t);
    c.passo([&] {
        if (!igual(c.valorEm(registroS, 'S', "indEndereco"_t), "C"_t)) return;
        c.exigir({"t.endereco.ausente"_t, "Endereco"_t}, "Endereco do cliente/contribuinte deve ser informado"_t);
        c.exigirNaoZero({"t.cep.ausente"_t, "CEP"_t}, "CEP do cliente/contribuinte deve ser informado"_t);
        c.exigir({"t.cidade.ausente"_t, "Cidade"_t}, "Cidade do cliente/contribuinte deve ser informada"_t);
        c.exigir({"t.uf.ausente"_t, "UF"_t}, "UF do cliente/contribuinte deve ser informada"_t);
    });
    return c.aprovada();
}

bool verificarSegmentoU(Apontador& apontador, const RegistroRemessa& registroU, const RegistroRemessa& registroS,
                        const Definicao& definicao) {
    Conferencia c(apontador, registroU, 'U');
    if (registroU.linha().empty()) {
        c.apoiarNoRegistro();
        c.erro({"u.ausente"_t}, "Registro 'U' - composição - não informado"_t, 0);
        return false;
    }
    double soma = 0;
    bool somada = true; // unless a complete check had to leave out a revenue
    for (int i = 1; i <= maiorNumero; ++i) {
        const CampoBuscado valor(registroU, camposDoValor[indiceDe(i)]);
        Valor lido;
        c.passo([&] { lido = verificarValorDaReceita(c, valor, i, definicao); });
        somada = c.passo([&] { soma += verificarAliquota(c, valor, lido, i, definicao); }) && somada;
    }
    if (!somada) return false;
    c.passo([&] {
        const double total = c.numeroEm(registroS, 'S', &Valor::paraDuplo, CampoBuscado(registroS, "ValorTotal"_t));
        c.apoiarNoRegistro();
        if (std::fabs(soma - total) > toleranciaDaSoma)
            c.erro({"u.soma.diferente"_t, "ValorRec1"_t},
                   "Soma dos valores das receitas difere do valor total do recebimento"_t);
    });
    return c.aprovada();
}

bool verificarObjeto(Apontador& apontador, const RegistroRemessa& registroV, const RegistroRemessa& registroS,
                     bool temSegmentoF) {
    Conferencia c(apontador, registroV, 'V');
    c.passo([&] {
        if (temSegmentoF || registroV.linha().empty() || !c.temBase('F')) return;
        c.apoiarNoRegistro();
        c.erro({"v.semSegmentoF"_t}, "Registro 'V' informado sem registro 'F'"_t);
    });
    if (!temSegmentoF) return c.aprovada();
    if (registroV.linha().empty()) {
        c.apoiarNoRegistro();
        c.erro({"v.ausente"_t}, "Registro 'V' - objeto - não informado"_t, linhaDaGuia(c, registroS));
        return false;
    }
    c.passo([&] {
        if (c.semConteudo("Identificacao"_t) && c.semConteudo("Descricao"_t) && c.semConteudo("Endereco"_t))
            c.erro({"v.objeto.ausente"_t, "Identificacao"_t},
                   "Umdos campos identificação, descrição ou localização do objeto deve ser informado"_t);
    });
    c.passo([&] {
        if (!igual(c.valorEm(registroS, 'S', "indEndereco"_t), "O"_t)) return;
        c.exigir({"v.endereco.ausente"_t, "Endereco"_t}, "Localização do objeto deve ser informada"_t);
        c.exigirNaoZero({"v.cep.ausente"_t, "CEP"_t}, "CEP da localização do objeto deve ser informado"_t);
        c.exigir({"v.cidade.ausente"_t, "Cidade"_t}, "Cidade da localização do objeto deve ser informada"_t);
        c.exigir({"v.uf.ausente"_t, "UF"_t}, "UF da localização do objeto deve ser informada"_t);
    });
    return c.aprovada();
}

bool verificarSegmentoW(Apontador& apontador, const RegistroRemessa& registroW, const RegistroRemessa& registroS,
                        const RegistrosGuardados& caracteristicas) {
    Conferencia c(apontador, registroW, 'W');
    if (registroW.linha().empty()) {
        c.apoiarNoRegistro();
        c.erro({"w.ausente"_t, {}, {}, motivoDoSegmentoW(caracteristicas)},
               "Registro 'W' - características do objeto - não informado"_t, linhaDaGuia(c, registroS));
        return false;
    }
    for (int i = 1; i <= maiorNumero; ++i) {
        c.passo([&] {
            const VistaTexto campo = camposDaCaracteristica[indiceDe(i)];
            if (c.comConteudo(campo) && c.temBase('G', caracteristicas, {"Codigo"_t}) &&
                !caracteristicas.contem({{"Codigo"_t, i}}))
                c.erro({"w.caract.naoDefinida"_t, campo},
                       junta("Campo Conteúdo da característica "_t, ultimos(campo, 1),
                             " informado mas característica não informada no segmento G"_t));
        });
    }
    return c.aprovada();
}

// The text speaks of three records, but a fourth one is accepted if its third message is empty: kept on purpose, the
// sample x-quarta-com-mensagem-3 holds it.
bool verificarSegmentoX(Apontador& apontador, std::span<const RegistroRemessa> mensagensX) {
    constexpr std::size_t recusada = 5;
    if (mensagensX.size() >= recusada) {
        Conferencia c(apontador, mensagensX[recusada - 1], 'X');
        c.erro({"x.maximo.excedido"_t}, "Devem ser informados no máximo 3 registros do segmento X"_t);
        return false;
    }
    const RegistroRemessa& quarta = mensagensX[recusada - 2];
    if (quarta.linha().empty()) return true;
    Conferencia c(apontador, quarta, 'X');
    c.passo([&] {
        if (comConteudo(c.valor("Mensagem3"_t)))
            c.erro({"x.mensagem3.informada"_t, "Mensagem3"_t},
                   "O quarto registro do segmento X não pode ter conteúdo no campo Mensagem 3"_t);
        else
            c.aviso({"x.quarto.naoConferido"_t},
                    "Quarto registro X na guia, que o log aceita quando não traz a Mensagem 3"_t);
    });
    return c.aprovada();
}

} // namespace quilatador
