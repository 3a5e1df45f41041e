#include "validator/checks/SegmentosABC.h"

#include "common/Diversos.h"
#include "common/DV.h"
#include "common/Numero.h"
#include "validator/FormatosDeData.h"

namespace quilatador {

namespace {

/// Whether the check digits of a CNPJ are right. Characters other than digits make it wrong instead of raising a
/// `Falha`.
bool cnpjValido(VistaTexto cnpj) {
    try {
        return DV::VerificarCNPJ(cnpj);
    } catch (const Falha&) {
        return false;
    }
}

/// What a CNPJ lets expect of another field: nothing, if it is wrong itself.
std::optional<Texto> seValido(VistaTexto cnpj, VistaTexto esperado) {
    if (!cnpjValido(cnpj)) return std::nullopt;
    return Texto(esperado);
}

/// Why a rule is disputed that takes a CNPJ for wrong: "" if it is not.
VistaTexto motivoDoCnpj(VistaTexto cnpj) {
    return DV::verificarCNPJComLetras(cnpj)
               ? "CNPJ com letras, como a Receita Federal os emite desde julho de 2026; os dígitos verificadores estão certos"_t
               : VistaTexto();
}

void verificarIDFebraban(Conferencia& c, std::int32_t segmento, const RegistroRemessa& registroB) {
    if (c.texto("IdFebraban"_t) == "        "_t) {
        c.erro({"c.idFebraban.ausente"_t, "IdFebraban"_t}, "Identificador Febraban inválido!"_t);
        return;
    }
    const std::int32_t identificador = c.numero(&Valor::paraLongo, "IdFebraban"_t);
    if (segmento != 6) {
        if (identificador > 9999)
            c.erro({"c.idFebraban.excedido"_t, "IdFebraban"_t},
                   "Identificador Febraban inválido para o segmento: máximo 9999"_t);
        return;
    }
    const Texto cnpj = c.textoEm(registroB, 'B', "CNPJ"_t);
    const VistaTexto inicioDoCnpj = trecho(cnpj, 1, 8);
    if (comZeros(identificador, 8) != inicioDoCnpj)
        c.erro({"c.idFebraban.diferenteDoCnpj"_t, "IdFebraban"_t, seValido(cnpj, inicioDoCnpj)},
               "Identificador Febraban inválido para o segmento 6: deve ser o início do CNPJ"_t);
}

void verificarMoeda(Conferencia& c, std::int16_t& moeda) {
    c.passo([&] {
        c.ecoDoTexto("Moeda          : "_t, "Moeda"_t);
        moeda = c.numero(&Valor::paraInteiro, "Moeda"_t);
        if (moeda < 6 || moeda > 9)
            c.erro({"c.moeda.invalida"_t, "Moeda"_t},
                   "Moeda inválida: deve ser 6-real ou 7-moeda variável ou 8-real MOD11 ou 9-moeda variável MOD11"_t);
    });
    c.passo([&] {
        c.ecoDoTexto("Nro.Decimais   : "_t, "Decimais"_t);
        const std::int16_t decimais = c.numero(&Valor::paraInteiro, "Decimais"_t);
        static_cast<void>(c.numero(&Valor::paraInteiro, "Moeda"_t)); // the rule rests on it too
        const bool real = moeda == 6 || moeda == 8;
        if (real && decimais != 2)
            c.erro({"c.decimais.real"_t, "Decimais"_t, Texto("2"_t)},
                   "Número de decimais tem de ser 2 para moeda Real"_t);
        if (!real && (decimais < 2 || decimais > 5))
            c.erro({"c.decimais.invalido"_t, "Decimais"_t}, "Número de decimais inválido: deve ser entre 2 e 5"_t);
    });
}

void verificarFormatoData(Conferencia& c, Texto& formatoDataBarra) {
    const Texto codigo = c.texto("FormatoData"_t);
    if (const auto formato = formatoDoCodigo(codigo))
        formatoDataBarra = *formato;
    else
        c.erro({"c.formatoData.invalido"_t, "FormatoData"_t},
               "Formato de data do convênio inválido deve ser 1,2,3,4,5,6,7 ou 9"_t);
    c.eco("Formato de data: "_t, junta(codigo, " - "_t, formatoDataBarra));
}

} // namespace

// The three indicators are searched for as texts within their list, so that "34" passes as "3" does: kept on purpose,
// the sample a-tipo-form-dentro-da-lista holds it.
void verificarSegmentoA(Apontador& apontador, const Definicao& definicao) {
    Conferencia c(apontador, definicao.registroA, 'A');
    const auto exigirNaLista = [&](VistaTexto rotulo, const Assunto& assunto, const Assunto& passagem, VistaTexto lista,
                                   VistaTexto mensagem) {
        c.passo([&] {
            c.ecoDoTexto(rotulo, assunto.campo);
            const Texto texto = c.texto(assunto.campo);
            if (lista.find(texto) == VistaTexto::npos) c.erro(assunto, mensagem);
            c.avisarSePassa(passagem, texto, lista);
        });
    };

    c.passo([&] {
        if (c.texto("IdProduto"_t) != "8"_t)
            c.erro({"a.idProduto.invalido"_t, "IdProduto"_t, Texto("8"_t)},
                   "Identificador do produto inválido. Esperado 8"_t);
    });
    c.passo([&] {
        c.ecoDoTexto("Remessa        : "_t, "NroRemessa"_t);
        if (igual(c.valor("NroRemessa"_t), 0))
            c.erro({"a.nroRemessa.zero"_t, "NroRemessa"_t}, "Número de remessa inválido"_t);
        else
            c.rotulo(Rotulo::Remessa, junta("Remessa: "_t, c.texto("NroRemessa"_t)));
    });
    c.passo([&] {
        if (!Diversos::String2Data(c.texto("DataGeracao"_t), "AAAAMMDD"_t, anoDe(c.hoje())))
            c.erro({"a.dataGeracao.invalida"_t, "DataGeracao"_t}, "Data da geração da remessa inválida"_t);
    });
    exigirNaLista("Tipo Formulário: "_t, {"a.tipoForm.invalido"_t, "TipoForm"_t},
                  {"a.tipoForm.naoConferido"_t, "TipoForm"_t}, "12345"_t, "Tipo de formulário inválido; "_t);
    exigirNaLista("Tipo Remessa   : "_t, {"a.tipoRemessa.invalido"_t, "TipoRemessa"_t},
                  {"a.tipoRemessa.naoConferido"_t, "TipoRemessa"_t}, "12"_t, "Tipo de remessa inválido; "_t);
    exigirNaLista("Postagem KV    : "_t, {"a.indPostagem.invalido"_t, "indPostagem"_t},
                  {"a.indPostagem.naoConferido"_t, "indPostagem"_t}, "SN"_t, "Indicador de postagem inválido; "_t);
    c.passo([&] {
        const Texto cnpj = c.texto("CNPJ"_t);
        const VistaTexto motivo = motivoDoCnpj(cnpj);
        if (lerNumero(cnpj) == 0)
            c.erro({"a.cnpj.ausente"_t, "CNPJ"_t, {}, motivo}, "CNPJ do convenente não informado no segmento 'A'"_t);
        else if (!cnpjValido(cnpj))
            c.erro({"a.cnpj.invalido"_t, "CNPJ"_t, {}, motivo}, "CNPJ do convenente inválido no segmento 'A'"_t);
    });
}

void verificarSegmentoB(Apontador& apontador, const Definicao& definicao) {
    Conferencia c(apontador, definicao.registroB, 'B');
    const auto exigirComEco = [&](VistaTexto rotulo, const Assunto& assunto, VistaTexto mensagem) {
        c.passo([&] {
            c.eco(rotulo, c.valor(assunto.campo).texto());
            c.exigir(assunto, mensagem);
        });
    };

    c.passo([&] {
        const Texto cnpj = c.texto("CNPJ"_t);
        c.eco("CNPJ           : "_t, comMascara(cnpj, "@@.@@@.@@@/@@@@-@@"_t));
        if (!cnpjValido(cnpj))
            c.erro({"b.cnpj.invalido"_t, "CNPJ"_t, {}, motivoDoCnpj(cnpj)}, "CNPJ do convenente inválido"_t);
    });
    c.passo([&] {
        const Texto cnpjDoHeader = c.textoEm(definicao.registroA, 'A', "CNPJ"_t);
        if (c.texto("CNPJ"_t) != cnpjDoHeader)
            c.erro({"b.cnpj.diferente"_t, "CNPJ"_t, seValido(cnpjDoHeader, cnpjDoHeader)},
                   "CNPJ do convenente diferente do informado no segmento 'A'"_t);
    });
    c.passo([&] {
        const Valor nome = c.valor("Nome"_t);
        c.eco("Convenente     : "_t, nome.texto());
        if (semConteudo(nome))
            c.erro({"b.nome.ausente"_t, "Nome"_t}, "Nome do convenente não foi informado"_t);
        else
            c.rotulo(Rotulo::Empresa, junta("Convenente: "_t, nome.texto()));
    });
    exigirComEco("Endereco       : "_t, {"b.endereco.ausente"_t, "Endereco"_t},
                 "Endereco do convenente não foi informado"_t);
    c.passo([&] {
        c.ecoDoTexto("CEP            : "_t, "cep"_t);
        c.exigirNaoZero({"b.cep.ausente"_t, "cep"_t}, "CEP do convenente não foi informado"_t);
    });
    exigirComEco("Cidade         : "_t, {"b.cidade.ausente"_t, "Cidade"_t}, "Cidade do convenente não foi informado"_t);
    exigirComEco("Bairro         : "_t, {"b.bairro.ausente"_t, "bairro"_t}, "Bairro do convenente não foi informado"_t);
    exigirComEco("UF             : "_t, {"b.uf.ausente"_t, "UF"_t}, "UF do convenente não foi informado"_t);
}

void verificarSegmentoC(Apontador& apontador, Definicao& definicao) {
    Conferencia c(apontador, definicao.registroC, 'C');

    c.passo([&] {
        c.ecoDoTexto("Convenio       : "_t, "Convenio"_t);
        c.exigirNaoZero({"c.convenio.zero"_t, "Convenio"_t}, "Campo 'Convênio' não pode ter valor zero"_t);
    });
    c.passo([&] {
        c.ecoDoTexto("Segm.Febraban  : "_t, "SegFebraban"_t);
        const std::int32_t segmento = c.numero(&Valor::paraLongo, "SegFebraban"_t);
        if (segmento < 1 || (segmento >= 7 && segmento != 9))
            c.erro({"c.segFebraban.invalido"_t, "SegFebraban"_t},
                   "Segmento Febraban inválido deve ser entre 1 e 6 ou 9"_t);
    });
    c.passo([&] {
        c.ecoDoTexto("Id.Febraban    : "_t, "IDFebraban"_t);
        const std::int32_t segmento = c.numero(&Valor::paraLongo, "SegFebraban"_t);
        if (segmento != 9) verificarIDFebraban(c, segmento, definicao.registroB);
    });
    c.passo([&] { static_cast<void>(c.numero(&Valor::paraLongo, "idServico"_t)); }); // no number ends the run
    c.passo([&] { static_cast<void>(c.texto("Finalidade"_t)); });                    // any text will do

    verificarMoeda(c, definicao.moeda);
    c.passo([&] { verificarFormatoData(c, definicao.FormatoDataBarra); });

    c.passo([&] {
        c.ecoDoTexto("Receber apos v.: "_t, "indAposReceb"_t);
        const Valor indicador = c.valor("IndAposReceb"_t);
        if (diferente(indicador, "N"_t) && diferente(indicador, "S"_t))
            c.erro({"c.indAposReceb.invalido"_t, "IndAposReceb"_t},
                   "Indicador de recebimento após o vencimento inválido (S/N)"_t);
    });
}

} // namespace quilatador
