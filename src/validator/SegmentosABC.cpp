#include "common/Diversos.h"
#include "common/DV.h"
#include "common/Numero.h"
#include "validator/Conferencia.h"

#include <algorithm>
#include <array>

namespace quilatador {

namespace {

/// Whether a CNPJ's check digits are right; one with anything but digits is wrong, not a failure.
bool cnpjValido(VistaTexto cnpj) {
    try {
        return DV::VerificarCNPJ(cnpj);
    } catch (const Falha&) {
        return false;
    }
}

struct FormatoDeData {
    VistaTexto codigo;
    VistaTexto formato;
};

constexpr std::array formatosDeData{FormatoDeData{"1", ""},         FormatoDeData{"2", "DDMMAA"},
                                    FormatoDeData{"3", "AAMMDD"},   FormatoDeData{"4", "AAAAMMDD"},
                                    FormatoDeData{"5", "ADDD"},     FormatoDeData{"6", "DDDA"},
                                    FormatoDeData{"7", "DDMMAAAA"}, FormatoDeData{"9", "AADDD"}};

} // namespace

// The tests of the three indicators search the text within the list: "34" passes as "3" does. Kept on purpose, the
// sample a-tipo-form-dentro-da-lista holds it.
void Depurador::verificarSegmentoA() {
    const RegistroRemessa& registro = execucao_.registroA;
    Conferencia c(*this, registro, 'A');
    const auto exigirNaLista = [&](const Assunto& assunto, VistaTexto lista, VistaTexto mensagem) {
        if (lista.find(c.texto(assunto.campo)) == VistaTexto::npos) c.erro(assunto, mensagem);
    };

    if (c.texto("IdProduto") != "8")
        c.erro({"a.idProduto.invalido", "IdProduto", "8"}, "Identificador do produto inválido. Esperado 8"_t);

    c.ecoDoTexto("Remessa        : ", "NroRemessa");
    if (igual(c.valor("NroRemessa"), 0))
        c.erro({"a.nroRemessa.zero", "NroRemessa"}, "Número de remessa inválido"_t);
    else
        ambiente_.painel.rotulo(Rotulo::Remessa, junta("Remessa: ", c.texto("NroRemessa")));

    if (!Diversos::String2Data(c.texto("DataGeracao"), "AAAAMMDD", anoDe(execucao_.hoje)))
        c.erro({"a.dataGeracao.invalida", "DataGeracao"}, "Data da geração da remessa inválida"_t);

    c.ecoDoTexto("Tipo Formulário: "_t, "TipoForm");
    exigirNaLista({"a.tipoForm.invalido", "TipoForm"}, "12345", "Tipo de formulário inválido; "_t);

    c.ecoDoTexto("Tipo Remessa   : ", "TipoRemessa");
    exigirNaLista({"a.tipoRemessa.invalido", "TipoRemessa"}, "12", "Tipo de remessa inválido; "_t);

    c.ecoDoTexto("Postagem KV    : ", "IndPostagem");
    exigirNaLista({"a.indPostagem.invalido", "indPostagem"}, "SN", "Indicador de postagem inválido; "_t);

    const Texto cnpj = c.texto("CNPJ");
    if (lerNumero(cnpj) == 0)
        c.erro({"a.cnpj.ausente", "CNPJ"}, "CNPJ do convenente não informado no segmento 'A'"_t);
    else if (!cnpjValido(cnpj))
        c.erro({"a.cnpj.invalido", "CNPJ"}, "CNPJ do convenente inválido no segmento 'A'"_t);
}

void Depurador::verificarSegmentoB() {
    Conferencia c(*this, execucao_.registroB, 'B');
    const auto ecoDoValor = [&](VistaTexto rotulo, VistaTexto campo) { c.eco(rotulo, c.valor(campo).texto()); };

    const Texto cnpj = c.texto("CNPJ");
    c.eco("CNPJ           : ", comMascara(cnpj, "@@.@@@.@@@/@@@@-@@"));
    if (!cnpjValido(cnpj)) c.erro({"b.cnpj.invalido", "CNPJ"}, "CNPJ do convenente inválido"_t);
    const Texto cnpjDoHeader = execucao_.registroA.getValorCampoString("CNPJ");
    if (cnpj != cnpjDoHeader)
        c.erro({"b.cnpj.diferente", "CNPJ", cnpjDoHeader}, "CNPJ do convenente diferente do informado no segmento 'A'");

    ecoDoValor("Convenente     : ", "Nome");
    const Valor nome = c.valor("Nome");
    if (semConteudo(nome))
        c.erro({"b.nome.ausente", "Nome"}, "Nome do convenente não foi informado"_t);
    else
        ambiente_.painel.rotulo(Rotulo::Empresa, junta("Convenente: ", nome.texto()));

    ecoDoValor("Endereco       : ", "Endereco");
    c.exigir({"b.endereco.ausente", "Endereco"}, "Endereco do convenente não foi informado"_t);

    c.ecoDoTexto("CEP            : ", "cep");
    c.exigirNaoZero({"b.cep.ausente", "cep"}, "CEP do convenente não foi informado"_t);

    ecoDoValor("Cidade         : ", "Cidade");
    c.exigir({"b.cidade.ausente", "Cidade"}, "Cidade do convenente não foi informado"_t);

    ecoDoValor("Bairro         : ", "Bairro");
    c.exigir({"b.bairro.ausente", "bairro"}, "Bairro do convenente não foi informado"_t);

    ecoDoValor("UF             : ", "UF");
    c.exigir({"b.uf.ausente", "UF"}, "UF do convenente não foi informado"_t);
}

void Depurador::verificarSegmentoC() {
    Conferencia c(*this, execucao_.registroC, 'C');

    c.ecoDoTexto("Convenio       : ", "Convenio");
    c.exigirNaoZero({"c.convenio.zero", "Convenio"}, "Campo 'Convênio' não pode ter valor zero"_t);

    c.ecoDoTexto("Segm.Febraban  : ", "SegFebraban");
    const std::int32_t segmento = c.valor("SegFebraban").paraLongo();
    if (segmento < 1 || (segmento >= 7 && segmento != 9))
        c.erro({"c.segFebraban.invalido", "SegFebraban"}, "Segmento Febraban inválido deve ser entre 1 e 6 ou 9"_t);

    c.ecoDoTexto("Id.Febraban    : ", "IDFebraban");
    if (segmento != 9) verificarIDFebraban(c, segmento);

    static_cast<void>(c.valor("idServico").paraLongo()); // not used, but one that is no number ends the run
    static_cast<void>(c.valor("Finalidade"));

    verificarMoeda(c);
    verificarFormatoData(c);

    c.ecoDoTexto("Receber apos v.: ", "indAposReceb");
    const Valor indicador = c.valor("IndAposReceb");
    if (diferente(indicador, "N") && diferente(indicador, "S"))
        c.erro({"c.indAposReceb.invalido", "IndAposReceb"},
               "Indicador de recebimento após o vencimento inválido (S/N)"_t);
}

void Depurador::verificarIDFebraban(Conferencia& c, std::int32_t segmento) {
    if (c.texto("IdFebraban") == "        ") {
        c.erro({"c.idFebraban.ausente", "IdFebraban"}, "Identificador Febraban inválido!"_t);
        return;
    }
    const std::int32_t identificador = c.valor("IdFebraban").paraLongo();
    if (segmento != 6) {
        if (identificador > 9999)
            c.erro({"c.idFebraban.excedido", "IdFebraban"},
                   "Identificador Febraban inválido para o segmento: máximo 9999"_t);
        return;
    }
    const Texto cnpj = execucao_.registroB.getValorCampoString("CNPJ");
    const VistaTexto inicioDoCnpj = trecho(cnpj, 1, 8);
    if (comZeros(identificador, 8) != inicioDoCnpj)
        c.erro({"c.idFebraban.diferenteDoCnpj", "IdFebraban", Texto(inicioDoCnpj)},
               "Identificador Febraban inválido para o segmento 6: deve ser o início do CNPJ"_t);
}

void Depurador::verificarMoeda(Conferencia& c) {
    c.ecoDoTexto("Moeda          : ", "Moeda");
    std::int16_t& moeda = globais_.moeda;
    moeda = c.valor("Moeda").paraInteiro();
    if (moeda < 6 || moeda > 9)
        c.erro({"c.moeda.invalida", "Moeda"},
               "Moeda inválida: deve ser 6-real ou 7-moeda variável ou 8-real MOD11 ou 9-moeda variável MOD11"_t);

    c.ecoDoTexto("Nro.Decimais   : ", "Decimais");
    const std::int16_t decimais = c.valor("Decimais").paraInteiro();
    const bool real = moeda == 6 || moeda == 8;
    if (real && decimais != 2)
        c.erro({"c.decimais.real", "Decimais", "2"}, "Número de decimais tem de ser 2 para moeda Real"_t);
    if (!real && (decimais < 2 || decimais > 5))
        c.erro({"c.decimais.invalido", "Decimais"}, "Número de decimais inválido: deve ser entre 2 e 5"_t);
}

void Depurador::verificarFormatoData(Conferencia& c) {
    const Texto codigo = c.texto("FormatoData");
    const auto formato = std::ranges::find(formatosDeData, codigo, &FormatoDeData::codigo);
    if (formato != formatosDeData.end())
        FormatoDataBarra = formato->formato;
    else
        c.erro({"c.formatoData.invalido", "FormatoData"},
               "Formato de data do convênio inválido deve ser 1,2,3,4,5,6,7 ou 9"_t);
    c.eco("Formato de data: ", junta(codigo, " - ", FormatoDataBarra));
}

} // namespace quilatador
