#include "common/Diversos.h"
#include "common/DV.h"
#include "common/Numero.h"
#include "validator/Conferencia.h"

#include <algorithm>

namespace quilatador {

bool Depurador::verificarSegmentoY(std::span<const RegistroRemessa> parcelasY) {
    if (parcelasY.empty() || parcelasY.front().linha().empty()) {
        // Speaks of a segment P: kept on purpose.
        escreverErro(Achado{.id = "y.ausente",
                            .gravidade = Gravidade::Erro,
                            .linha = 0,
                            .segmento = 'Y',
                            .campo = std::nullopt,
                            .mensagem = Texto("Registro 'P' - parcelas - não informado"_t)});
        return false;
    }
    bool aceitas = true;
    for (const RegistroRemessa& parcela : parcelasY) {
        if (parcela.linha().empty()) break;
        Conferencia c(*this, parcela, 'Y', Conferencia::AoFalhar::PularPasso);
        verificarParcela(c);
        const Texto barra = verificarPartes(c);
        verificarBarra(c, barra);
        verificarEmpresaNaBarra(c, barra);
        verificarDataNaBarra(c, barra);
        aceitas = aceitas && c.aprovada();
    }
    return aceitas;
}

/// The installment itself, against the payment options.
void Depurador::verificarParcela(Conferencia& c) {
    c.passo([&] {
        if (foraDe(c.valor("TipoPag"), "ACP"))
            c.erro({"y.tipoPag.invalido", "TipoPag"}, "Tipo de pagamento inválido"_t);
    });
    c.passo([&] {
        if (igual(c.valor("TipoPag"), "C")) {
            if (c.texto("NroPag") != "00")
                c.erro({"y.nroPag.cotaUnica", "NroPag", "00"},
                       "Tipo de pagamento cota unica exige numero de pagamento 0");
        } else {
            c.exigirNaoZero({"y.nroPag.ausente", "NroPag"}, "Número do pagamento não informado"_t);
        }
    });
    c.passo([&] {
        if (!Diversos::String2Data(c.texto("DataVenc"), "AAAAMMDD", anoDe(execucao_.hoje)))
            c.erro({"y.dataVenc.invalida", "DataVenc"}, "Data de vencimento inválida"_t);
        else if (menor(c.valor("DataVenc"), execucao_.hoje))
            c.erro({"y.dataVenc.vencida", "DataVenc"}, "Data de vencimento inferior a data atual");
    });
    c.passo([&] {
        const Valor tipo = c.valor("TipoPag");
        const Valor numero = c.valor("NroPag");
        const bool definida = std::ranges::any_of(execucao_.opcoesPagamento, [&](const RegistroRemessa& opcao) {
            return igual(opcao.getValorCampo("TipoPag"), tipo) && igual(opcao.getValorCampo("NroPag"), numero);
        });
        if (!definida)
            c.erro({"y.opcao.naoDefinida", "NroPag"}, "Tipo e número de parcela não informadas em segmento L"_t);
    });
    c.passo([&] {
        if (menor(c.valor("ValorPag"), 0)) c.erro({"y.valorPag.negativo", "ValorPag"}, "Valor da parcela inválido"_t);
    });
}

/// The four parts of the barcode with a check digit each; gives the barcode, without the parts that are no number.
Texto Depurador::verificarPartes(Conferencia& c) {
    Texto barra;
    for (const VistaTexto k : {"1", "2", "3", "4"}) {
        const Texto campoDaParte = junta("Parte", k);
        const Texto campoDoDigito = junta("DV", k);
        std::optional<Texto> digito;
        c.passo([&] {
            const Texto parte = c.texto(campoDaParte);
            if (ehNumerico(parte)) {
                barra += parte;
                digito = digitoDaBarra(parte);
            } else {
                c.erro({"y.parte.naoNumerica", campoDaParte},
                       junta("Valor não numérico no código de barras - Parte "_t, k), 0);
            }
        });
        c.passo([&] {
            // The number comes with the place of its sign, so that there are two blanks: kept on purpose, the sample
            // y-dv-incorreto holds it.
            if (digito && diferente(c.valor(campoDoDigito), *digito))
                c.erro({"y.dv.incorreto", campoDoDigito, digito}, junta("Dígito verificador  "_t, k, " incorreto!"));
        });
    }
    return barra;
}

/// Febraban's check digit by the agreement's currency, whatever the barcode itself says of its value.
Texto Depurador::digitoDaBarra(VistaTexto digitos) const {
    const bool modulo10 = globais_.moeda == 6 || globais_.moeda == 7;
    return modulo10 ? DV::CalcularMod10(digitos) : DV::CalculaMod11Barra(digitos);
}

/// The barcode as a whole: value, general check digit, product, segment and kind of value.
void Depurador::verificarBarra(Conferencia& c, VistaTexto barra) {
    c.passo([&] {
        if (!versaoComIndicadores() || !execucao_.checarValor) return;
        const Texto centavos = junta(trecho(c.texto("Parte1"), 5, 7), trecho(c.texto("Parte2"), 1, 4));
        if (lerNumero(c.texto("ValorPag")) != lerNumero(centavos))
            c.erro({"y.barra.valor", "ValorPag", centavos}, "Valor no código de barras difere do valor no campo Y3"_t);
    });
    c.passo([&] {
        const VistaTexto informado = trecho(barra, 4, 1);
        if (!soDigitos(informado)) return;
        const Texto calculado = digitoDaBarra(junta(trecho(barra, 1, 3), trecho(barra, 5)));
        if (informado != calculado)
            c.erro({"y.barra.digitoGeral", "Parte1", calculado},
                   "Dígito verificador da barra (4a posição) incorreto!"_t);
    });
    c.passo([&] {
        if (trecho(barra, 1, 1) != "8")
            c.erro({"y.barra.produto", "Parte1", "8"}, "Identificação do produto na barra diferente de '8'"_t);
    });
    c.passo([&] {
        const Texto segmento = execucao_.registroC.getValorCampoString("SegFebraban");
        if (trecho(barra, 2, 1) != segmento)
            c.erro({"y.barra.segmento", "Parte1", segmento},
                   "Identificação do segmento difere do informado no segmento 'C'"_t);
    });
    c.passo([&] {
        const VistaTexto tipoDeValor = trecho(barra, 3, 1);
        // Speaks of 6 and 7 only: kept on purpose, the sample y-barra-tipo-de-valor holds it.
        if (tipoDeValor.empty() || VistaTexto("6789").find(tipoDeValor) == VistaTexto::npos)
            c.erro({"y.barra.tipoDeValor", "Parte1"},
                   "Identificação de valor real ou referência diferente de '6' ou '7'"_t);
    });
}

/// What the barcode must have from position 16 on: it depends on the Febraban segment.
Depurador::EmpresaNaBarra Depurador::empresaEsperada() const {
    const Valor segmento = execucao_.registroC.getValorCampo("SegFebraban");
    if (igual(segmento, "9"))
        return {
            "y.barra.convenio", junta("000101", execucao_.convenioHeader), 12,
            "O segmento 9 - Uso do Banco - exige a informação 000101 + número do convênio nas posições 16 a 21 do código de barras"_t};
    if (igual(segmento, "6"))
        return {"y.barra.cnpj", Texto(trecho(execucao_.registroB.getValorCampoString("CNPJ"), 1, 8)), 8,
                "Primeiras 8 posições do CNPJ não confere com a identificação da empresa na barra"_t};
    return {"y.barra.idFebraban", Texto(ultimos(execucao_.registroC.getValorCampoString("IdFebraban"), 4)), 4,
            "Identifcador da Febraban informado no segmento 'C' difere da identificação da empresa na barra"_t};
}

/// The company's identification, and the free field behind it.
void Depurador::verificarEmpresaNaBarra(Conferencia& c, VistaTexto barra) {
    constexpr std::size_t inicioDaEmpresa = 16;
    c.passo([&] {
        const EmpresaNaBarra empresa = empresaEsperada();
        if (trecho(barra, inicioDaEmpresa, empresa.largura) != empresa.identificacao)
            c.erro({empresa.id, {}, empresa.identificacao}, empresa.mensagem);
        if (lerNumero(trecho(barra, inicioDaEmpresa + empresa.largura)) == 0)
            c.erro({"y.barra.campoLivre"}, "Campo livre não pode estar preenchido somente por zeros"_t);
    });
}

void Depurador::verificarDataNaBarra(Conferencia& c, VistaTexto barra) {
    if (PosicaoDataBarra < 1) return;
    c.passo([&] {
        const VistaTexto texto = trecho(barra, static_cast<std::size_t>(PosicaoDataBarra), FormatoDataBarra.size());
        const auto data = Diversos::String2Data(texto, FormatoDataBarra, anoDe(execucao_.hoje));
        if (!data) {
            c.erro({"y.barra.dataInvalida", "DataVenc"}, "Data no código de barras inválida"_t);
            return;
        }
        if (versaoComIndicadores() && !execucao_.checarData) return;
        if (diferente(c.valor("DataVenc"), *data))
            c.erro({"y.barra.dataDiferente", "DataVenc"}, "Data no código de barras difere da data no campo Y12"_t);
    });
}

} // namespace quilatador
