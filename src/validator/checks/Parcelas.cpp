#include "validator/checks/Parcelas.h"

#include "common/Diversos.h"
#include "common/DV.h"
#include "common/Numero.h"
#include "validator/checks/SegmentosDEF.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace quilatador {

namespace {

/// The display handles its events once per this many installments, which is often enough for a user and costs nothing
/// beside the checks.
constexpr std::size_t parcelasPorAtendimento = 64;

constexpr std::array partesDaBarra{"Parte1"_t, "Parte2"_t, "Parte3"_t, "Parte4"_t};
constexpr std::array digitosDaBarra{"DV1"_t, "DV2"_t, "DV3"_t, "DV4"_t};

/// The usual length of a barcode.
constexpr std::size_t tamanhoDaBarra = 44;

/// The fields that the check of an installment reads, looked up once for all of a slip.
struct CamposDaParcela {
    CampoBuscado tipoPag;
    CampoBuscado nroPag;
    CampoBuscado dataVenc;
    CampoBuscado valorPag;
    std::array<CampoBuscado, partesDaBarra.size()> partes;
    std::array<CampoBuscado, partesDaBarra.size()> digitos;
    CampoBuscado moeda; ///< of record C, as the next two
    CampoBuscado segFebraban;
    CampoBuscado idFebraban;

    CamposDaParcela(const RegistroRemessa& tipoY, const RegistroRemessa& registroC)
        : tipoPag(tipoY, "TipoPag"_t)
        , nroPag(tipoY, "NroPag"_t)
        , dataVenc(tipoY, "DataVenc"_t)
        , valorPag(tipoY, "ValorPag"_t)
        , partes(buscar(tipoY, partesDaBarra))
        , digitos(buscar(tipoY, digitosDaBarra))
        , moeda(registroC, "Moeda"_t)
        , segFebraban(registroC, "SegFebraban"_t)
        , idFebraban(registroC, "IdFebraban"_t) {}

  private:
    using Nomes = std::array<VistaTexto, partesDaBarra.size()>;

    static std::array<CampoBuscado, partesDaBarra.size()> buscar(const RegistroRemessa& tipo, const Nomes& nomes) {
        const auto um = [&](std::size_t i) { return CampoBuscado(tipo, nomes[i]); };
        return {um(0), um(1), um(2), um(3)};
    }
};

/// The barcode of an installment, in the places that the layout gives to its parts. Positions are 1-based.
struct Barra {
    const CamposDaParcela& campos;
    Texto texto;                                          ///< the parts that are numeric, one behind the other
    std::size_t certas = 0;                               ///< positions before the first part that is not numeric
    std::array<std::size_t, partesDaBarra.size()> fins{}; ///< the last position of each part

    /// The name of the part in which a position stands, "" behind the last one.
    [[nodiscard]] VistaTexto parteDa(std::size_t posicao) const {
        const auto parte = std::ranges::lower_bound(fins, posicao);
        return parte == fins.end() ? VistaTexto() : partesDaBarra[static_cast<std::size_t>(parte - fins.begin())];
    }
    /// What is expected by a comparison that needs the positions up to `ate`. Behind a part that is not numeric `texto`
    /// has other positions there, so that nothing can be expected of them, nor of a definition without digits.
    [[nodiscard]] std::optional<Texto> esperado(std::size_t ate, VistaTexto digitos) const {
        if (ate > certas || !soDigitos(digitos)) return std::nullopt;
        return Texto(digitos);
    }
    /// The field at fault where `campo` differs from the positions up to `ate`: if they could not all be read, it is
    /// the first part that is not numeric, and `campo` may well be right.
    [[nodiscard]] VistaTexto culpado(std::size_t ate, VistaTexto campo) const {
        return ate > certas && certas < fins.back() ? parteDa(certas + 1) : campo;
    }
    /// Notes that a step rests on the positions `de` to `ate`: on the parts in which they stand and their check digits,
    /// and on every part that has to be read before they are found.
    void apoiar(Conferencia& c, std::size_t de, std::size_t ate) const {
        if (!c.completa()) return;
        for (std::size_t i = 0; i < partesDaBarra.size(); ++i) {
            const std::size_t inicio = i == 0 ? 1 : fins[i - 1] + 1;
            const bool deslocada = ate > certas && fins[i] > certas && inicio <= ate;
            if (!deslocada && (fins[i] < de || inicio > ate)) continue;
            c.apoiar(campos.partes[i].campo);
            c.apoiar(campos.digitos[i].campo);
        }
    }
};

/// The identification of the company in the barcode, from position 16 (1-based) on.
struct EmpresaNaBarra {
    VistaTexto id; ///< of the finding if the barcode has another identification
    Texto identificacao;
    std::size_t largura;
    VistaTexto mensagem;
};

/// Febraban's check digit: modulus 10 for the currencies 6 and 7, else modulus 11. The currency of the agreement
/// decides, whatever the barcode itself says.
Texto digitoDaBarra(VistaTexto digitos, const Definicao& definicao) {
    const bool modulo10 = definicao.moeda == 6 || definicao.moeda == 7;
    return modulo10 ? DV::CalcularMod10(digitos) : DV::CalculaMod11Barra(digitos);
}

/// Whether check digits can be computed: not in a complete check if the currency of the agreement could not be read.
bool temModulo(Conferencia& c, const Definicao& definicao, const CamposDaParcela& campos) {
    return c.temBase(definicao.registroC, 'C', campos.moeda.campo);
}

/// Checks the installment itself, against the payment options.
void verificarParcela(Conferencia& c, const Definicao& definicao, const CamposDaParcela& campos) {
    constexpr VistaTexto tiposDePagamento = "ACP"_t;
    c.passo([&] {
        const Valor tipo = c.valor(campos.tipoPag);
        if (foraDe(tipo, tiposDePagamento))
            c.erro({"y.tipoPag.invalido"_t, "TipoPag"_t}, "Tipo de pagamento inválido"_t);
        if (c.completa()) c.avisarSePassa({"y.tipoPag.naoConferido"_t, "TipoPag"_t}, tipo.texto(), tiposDePagamento);
    });
    c.passo([&] {
        if (igual(c.valor(campos.tipoPag), "C"_t)) {
            if (c.texto(campos.nroPag) != "00"_t)
                c.erro({"y.nroPag.cotaUnica"_t, "NroPag"_t, Texto("00"_t)},
                       "Tipo de pagamento cota unica exige numero de pagamento 0"_t);
        } else {
            c.exigirNaoZero({"y.nroPag.ausente"_t, "NroPag"_t}, "Número do pagamento não informado"_t);
        }
    });
    c.passo([&] {
        if (!Diversos::String2Data(c.texto(campos.dataVenc), "AAAAMMDD"_t, anoDe(c.hoje())))
            c.erro({"y.dataVenc.invalida"_t, "DataVenc"_t}, "Data de vencimento inválida"_t);
        else if (menor(c.valor(campos.dataVenc), c.hoje()))
            c.erro({"y.dataVenc.vencida"_t, "DataVenc"_t}, "Data de vencimento inferior a data atual"_t);
    });
    c.passo([&] {
        const Valor tipo = c.valor(campos.tipoPag);
        const Valor numero = c.valor(campos.nroPag);
        if (c.temBase('L', definicao.opcoesPagamento, {"TipoPag"_t, "NroPag"_t}) &&
            !definicao.opcoesPagamento.contem({{"TipoPag"_t, tipo}, {"NroPag"_t, numero}}))
            c.erro({"y.opcao.naoDefinida"_t, "NroPag"_t}, "Tipo e número de parcela não informadas em segmento L"_t);
    });
    c.passo([&] {
        if (menor(c.valor(campos.valorPag), 0))
            c.erro({"y.valorPag.negativo"_t, "ValorPag"_t}, "Valor da parcela inválido"_t);
    });
}

/// Whether a check digit cannot be read, which is no error. A complete check takes notice of it.
bool avisarSeIlegivel(Conferencia& c, const CampoBuscado& campo, VistaTexto numeroDaParte) {
    if (!c.completa() || ehNumerico(c.texto(campo))) return false;
    c.aviso({"y.dv.naoConferido"_t, campo.nome},
            junta("Dígito verificador "_t, numeroDaParte, " em branco ou ilegível, que o log não confere"_t));
    return true;
}

/// Checks the four parts of the barcode, each with its check digit. Returns the barcode, without the parts that are not
/// numeric.
Barra verificarPartes(Conferencia& c, const Definicao& definicao, const CamposDaParcela& campos) {
    Barra barra{.campos = campos, .texto = {}};
    barra.texto.reserve(tamanhoDaBarra);
    for (std::size_t i = 0; i < partesDaBarra.size(); ++i) {
        const VistaTexto k = ultimos(partesDaBarra[i], 1);
        const CampoBuscado& campoDoDigito = campos.digitos[i];
        std::optional<Texto> digito;
        const std::size_t inicio = i == 0 ? 0 : barra.fins[i - 1];
        barra.fins[i] = inicio;
        c.passo([&] {
            const Texto parte = c.texto(campos.partes[i]);
            barra.fins[i] = inicio + parte.size();
            if (ehNumerico(parte)) {
                if (barra.certas == inicio) barra.certas = barra.fins[i];
                barra.texto += parte;
                if (temModulo(c, definicao, campos)) digito = digitoDaBarra(parte, definicao);
            } else {
                c.erro({"y.parte.naoNumerica"_t, partesDaBarra[i]},
                       junta("Valor não numérico no código de barras - Parte "_t, k), 0);
            }
        });
        c.passo([&] {
            if (!digito || avisarSeIlegivel(c, campoDoDigito, k)) return;
            c.apoiar(campos.partes[i].campo);
            static_cast<void>(temModulo(c, definicao, campos));
            // The text has two blanks before the number: kept on purpose, the sample y-dv-incorreto holds it.
            if (diferente(c.valor(campoDoDigito), *digito))
                c.erro({"y.dv.incorreto"_t, campoDoDigito.nome, digito},
                       junta("Dígito verificador  "_t, k, " incorreto!"_t));
        });
    }
    return barra;
}

/// Takes notice of a general check digit that is none. Where a part is not numeric, there is no telling its place.
void avisarDoDigitoGeral(Conferencia& c, const Barra& barra) {
    if (barra.certas == barra.fins.back())
        c.aviso({"y.barra.digitoGeral.naoConferido"_t, barra.parteDa(4)},
                "A 4a posição do código de barras não é um dígito, e o log não a confere"_t);
}

/// Checks the barcode as a whole: value, general check digit, product, segment and kind of value.
void verificarBarra(Conferencia& c, const Barra& barra, const Definicao& definicao) {
    const VistaTexto texto = barra.texto;
    c.passo([&] {
        if (!definicao.checarValor || !versaoComIndicadores(definicao)) return;
        barra.apoiar(c, 5, 15);
        const Texto centavos =
            junta(trecho(c.texto(barra.campos.partes[0]), 5, 7), trecho(c.texto(barra.campos.partes[1]), 1, 4));
        if (lerNumero(c.texto(barra.campos.valorPag)) != lerNumero(centavos))
            c.erro({"y.barra.valor"_t, barra.culpado(15, "ValorPag"_t), barra.esperado(15, centavos)},
                   "Valor no código de barras difere do valor no campo Y3"_t);
    });
    c.passo([&] {
        barra.apoiar(c, 1, barra.fins.back());
        const VistaTexto informado = trecho(texto, 4, 1);
        if (!soDigitos(informado)) return avisarDoDigitoGeral(c, barra);
        if (!temModulo(c, definicao, barra.campos)) return;
        const Texto calculado = digitoDaBarra(junta(trecho(texto, 1, 3), trecho(texto, 5)), definicao);
        if (informado != calculado)
            c.erro({"y.barra.digitoGeral"_t, barra.parteDa(4), barra.esperado(barra.fins.back(), calculado)},
                   "Dígito verificador da barra (4a posição) incorreto!"_t);
    });
    c.passo([&] {
        barra.apoiar(c, 1, 1);
        if (trecho(texto, 1, 1) != "8"_t)
            c.erro({"y.barra.produto"_t, barra.parteDa(1), barra.esperado(1, "8"_t)},
                   "Identificação do produto na barra diferente de '8'"_t);
    });
    c.passo([&] {
        barra.apoiar(c, 2, 2);
        const Texto segmento = c.textoEm(definicao.registroC, 'C', barra.campos.segFebraban);
        if (trecho(texto, 2, 1) != segmento)
            c.erro({"y.barra.segmento"_t, barra.parteDa(2), barra.esperado(2, segmento)},
                   "Identificação do segmento difere do informado no segmento 'C'"_t);
    });
    c.passo([&] {
        barra.apoiar(c, 3, 3);
        const VistaTexto tipoDeValor = trecho(texto, 3, 1);
        // The text names only 6 and 7, although 8 and 9 are accepted: kept on purpose, the sample y-barra-tipo-de-valor
        // holds it.
        if (tipoDeValor.empty() || VistaTexto("6789"_t).find(tipoDeValor) == VistaTexto::npos)
            c.erro({"y.barra.tipoDeValor"_t, barra.parteDa(3)},
                   "Identificação de valor real ou referência diferente de '6' ou '7'"_t);
    });
}

/// The identification that the barcode must have. It depends on the Febraban segment.
EmpresaNaBarra empresaEsperada(Conferencia& c, const Definicao& definicao, const CamposDaParcela& campos) {
    const Valor segmento = c.valorEm(definicao.registroC, 'C', campos.segFebraban);
    if (igual(segmento, "9"_t))
        return {
            "y.barra.convenio"_t, junta("000101"_t, definicao.convenio), 12,
            "O segmento 9 - Uso do Banco - exige a informação 000101 + número do convênio nas posições 16 a 21 do código de barras"_t};
    if (igual(segmento, "6"_t))
        return {"y.barra.cnpj"_t, Texto(trecho(c.textoEm(definicao.registroB, 'B', "CNPJ"_t), 1, 8)), 8,
                "Primeiras 8 posições do CNPJ não confere com a identificação da empresa na barra"_t};
    return {"y.barra.idFebraban"_t, Texto(ultimos(c.textoEm(definicao.registroC, 'C', campos.idFebraban), 4)), 4,
            "Identifcador da Febraban informado no segmento 'C' difere da identificação da empresa na barra"_t};
}

/// Whether `lerNumero` reads 0, which nearly all texts tell by their digits.
bool valeZero(VistaTexto texto) {
    return soDigitos(texto) ? texto.find_first_not_of('0') == VistaTexto::npos : lerNumero(texto) == 0;
}

/// Checks the identification of the company and the free field after it.
void verificarEmpresaNaBarra(Conferencia& c, const Barra& barra, const Definicao& definicao) {
    constexpr std::size_t inicioDaEmpresa = 16;
    c.passo([&] {
        const EmpresaNaBarra empresa = empresaEsperada(c, definicao, barra.campos);
        const std::size_t campoLivre = inicioDaEmpresa + empresa.largura;
        barra.apoiar(c, inicioDaEmpresa, barra.fins.back());
        if (trecho(barra.texto, inicioDaEmpresa, empresa.largura) != empresa.identificacao)
            c.erro({empresa.id, barra.parteDa(inicioDaEmpresa), barra.esperado(campoLivre - 1, empresa.identificacao)},
                   empresa.mensagem);
        if (valeZero(trecho(barra.texto, campoLivre)))
            c.erro({"y.barra.campoLivre"_t, barra.parteDa(campoLivre)},
                   "Campo livre não pode estar preenchido somente por zeros"_t);
    });
}

void verificarDataNaBarra(Conferencia& c, const Barra& barra, const Definicao& definicao) {
    if (definicao.PosicaoDataBarra < 1) return;
    c.passo([&] {
        if (!c.temBase(definicao.registroC, 'C', "FormatoData"_t)) return;
        const auto posicao = static_cast<std::size_t>(definicao.PosicaoDataBarra);
        barra.apoiar(c, posicao, posicao + definicao.FormatoDataBarra.size());
        const VistaTexto texto = trecho(barra.texto, posicao, definicao.FormatoDataBarra.size());
        const auto data = Diversos::String2Data(texto, definicao.FormatoDataBarra, anoDe(c.hoje()));
        if (!data) {
            c.erro({"y.barra.dataInvalida"_t, barra.parteDa(posicao)}, "Data no código de barras inválida"_t);
            return;
        }
        if (!definicao.checarData && versaoComIndicadores(definicao)) return;
        if (diferente(c.valor(barra.campos.dataVenc), *data))
            c.erro({"y.barra.dataDiferente"_t, barra.culpado(posicao + texto.size() - 1, "DataVenc"_t)},
                   "Data no código de barras difere da data no campo Y12"_t);
    });
}

} // namespace

bool verificarSegmentoY(Apontador& apontador, const RegistrosGuardados& parcelasY, const Definicao& definicao) {
    if (parcelasY.vazia()) {
        constexpr std::array fundamentos{Fundamento{.letra = 'Y'}};
        // The text names a segment 'P' although 'Y' is missing: kept on purpose.
        apontador.apontar(Achado{.id = "y.ausente"_t,
                                 .gravidade = Gravidade::Erro,
                                 .linha = 0,
                                 .segmento = 'Y',
                                 .campo = std::nullopt,
                                 .mensagem = Texto("Registro 'P' - parcelas - não informado"_t)},
                          fundamentos);
        return false;
    }
    const CamposDaParcela campos(parcelasY.tipo(), definicao.registroC);
    bool aceitas = true;
    for (std::size_t i = 0; i < parcelasY.tamanho(); ++i) {
        if ((i + 1) % parcelasPorAtendimento == 0 && apontador.canceladaAgora()) break;
        Conferencia c(apontador, parcelasY[i], 'Y', Conferencia::AoFalhar::PularPasso);
        verificarParcela(c, definicao, campos);
        const Barra barra = verificarPartes(c, definicao, campos);
        verificarBarra(c, barra, definicao);
        verificarEmpresaNaBarra(c, barra, definicao);
        verificarDataNaBarra(c, barra, definicao);
        aceitas = aceitas && c.aprovada();
    }
    return aceitas;
}

} // namespace quilatador
