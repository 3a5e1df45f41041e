#include "layout/ArquivoRemessaBD.h"

#include "support/Falhas.h"
#include "support/Falsos.h"

#include <gtest/gtest.h>

#include <random>

namespace quilatador {
namespace {

using testes::textoDaFalha;

const Texto declaracao = R"(<?xml version="1.0" encoding="UTF-8"?>)";

/// A description of one record type of 9 characters; a case changes one piece of it.
const Texto boa = declaracao + R"(
<ArquivoRemessa>
  <Registro Nome="A" Tamanho="9" Identificador="Tipo">
    <Campo Nome="Tipo" Tipo="S" Tamanho="1" Formato="" Decimais="0" Valor="A"/>
    <Campo Nome="Data" Tipo="D" Alinhamento="1" Tamanho="8" Formato="AAAAMMDD" Decimais="2"/>
  </Registro>
</ArquivoRemessa>
)";

Texto trocar(Texto texto, VistaTexto de, VistaTexto para) {
    return texto.replace(texto.find(de), de.size(), para);
}

struct Carga {
    std::unique_ptr<ArquivoRemessa> leiaute;
    Texto falha;
    std::vector<Texto> mensagens;
};

Carga carregar(testes::MundoFalso& mundo) {
    Carga carga;
    carga.falha = textoDaFalha(
        [&] { carga.leiaute = ArquivoRemessaBD::obterArquivoRemessa("leiaute.xml", mundo.arquivos, mundo.painel); });
    carga.mensagens = mundo.painel.chamadas;
    return carga;
}

Carga carregar(VistaTexto descricao) {
    testes::MundoFalso mundo;
    mundo.arquivos.conteudo["leiaute.xml"] = Texto(descricao);
    return carregar(mundo);
}

TEST(ArquivoRemessaBD, registrosECamposNaOrdem) {
    testes::MundoFalso mundo;
    mundo.arquivos.conteudo["leiaute.xml"] = declaracao + R"(
        <ArquivoRemessa Versao="x">
          <Segmento Nome="A" Tamanho="240" Identificador="Tipo">
            <x Nome="Tipo" Tipo="S" Tamanho="1" Formato="" Decimais="0" Valor="A"/>
            <y Nome="Valor" Tipo="N" Alinhamento="1" Tamanho=" 15 posições" Formato="F" Decimais="2 casas"/>
            <z Nome="Largo" Tipo="R" Alinhamento="255" Tamanho="1.5" Formato="&quot;" Decimais="" Valor=""><w/></z>
          </Segmento>
          <Registro Nome="B" Tamanho="32767" Identificador="Não há"/>
        </ArquivoRemessa>)";
    const auto leiaute = carregar(mundo).leiaute;
    ASSERT_TRUE(leiaute);
    Texto descricao;
    for (const auto& tipo : leiaute->tiposRegistros()) {
        descricao += junta(tipo->nome(), " ", std::to_string(tipo->Tamanho()), " ", tipo->identificador(), "\n");
        for (const auto& c : tipo->campos())
            descricao += junta("  ", c->nome(), " ", c->natureza(), std::to_string(c->alinhamento()), " ",
                               std::to_string(c->inicio()), "-", std::to_string(c->Fim()), " ", c->formato(), " ",
                               std::to_string(c->numeroDecimais()), " ",
                               c->Valor().nulo() ? "nulo" : junta("[", c->Valor().texto(), "]"), "\n");
    }
    EXPECT_EQ(descricao, "A 240 Tipo\n"
                         "  Tipo S0 1-1  0 [A]\n"
                         "  Valor N1 2-16 F 2 nulo\n"
                         "  Largo R255 17-18 \" 0 []\n"
                         "B 32767 Não há\n"_t);
    EXPECT_TRUE(mundo.arquivos.tudoFechado());
    EXPECT_TRUE(mundo.painel.chamadas.empty());
}

TEST(ArquivoRemessaBD, nomesEmQualquerCodificacao) {
    const std::pair<VistaTexto, VistaTexto> casos[] = {
        {"UTF-8", "A\xC3\xA7\xC3\xA3o"},
        {"windows-1252", "Ação"_t},
        {"ISO-8859-1", "Ação"_t},
    };
    for (const auto& [codificacao, nome] : casos) {
        Texto descricao = trocar(boa, "UTF-8", codificacao);
        descricao = trocar(descricao, R"("Data")", junta("\"", nome, "\""));
        const auto leiaute = carregar(descricao).leiaute;
        ASSERT_TRUE(leiaute) << codificacao;
        EXPECT_EQ(leiaute->tiposRegistros()[0]->campos()[1]->nome(), "Ação"_t) << codificacao;
    }
}

TEST(ArquivoRemessaBD, arquivoAusenteDaMensagemENenhumLeiaute) {
    testes::MundoFalso mundo;
    const Carga carga = carregar(mundo);
    EXPECT_EQ(carga.leiaute, nullptr);
    EXPECT_EQ(carga.falha, "");
    EXPECT_EQ(carga.mensagens,
              std::vector<Texto>{"mensagem [Solvara - Quilatador de Leiaute] Arquivo nao encontrado!"});
    mundo.arquivos.conteudo["leiaute.xml"] = boa;
    mundo.arquivos.falhar(testes::ArquivosEmMemoria::Operacao::Abrir, 1, Falha(70, "Gravacao", "Permissão negada"));
    EXPECT_EQ(carregar(mundo).falha, "70 Gravacao: Permissão negada");
}

TEST(ArquivoRemessaBD, outraRaizDaMensagemEFalha) {
    const Texto raiz = boa.substr(boa.find("<ArquivoRemessa>"));
    for (const Texto& descricao :
         {raiz, trocar(trocar(boa, "ArquivoRemessa>", "Outra>"), "/ArquivoRemessa>", "/Outra>"),
          declaracao + "<!-- antes -->" + raiz, declaracao + "<?a b?>" + raiz,
          declaracao + "<!DOCTYPE ArquivoRemessa [<!ENTITY e SYSTEM \"file:///etc/passwd\">]>" + raiz}) {
        const Carga carga = carregar(descricao);
        EXPECT_EQ(carga.falha, "1 ArquivoRemessaBD: Arquivo XML não corresponde a um arquivo de remessa!"_t);
        EXPECT_EQ(carga.mensagens, std::vector<Texto>{Texto("mensagem [Solvara - Quilatador de Leiaute] "
                                                            "Arquivo XML não corresponde a um arquivo de remessa!"_t)});
    }
}

TEST(ArquivoRemessaBD, falhaDizRegistroCampoEAtributo) {
    const std::tuple<VistaTexto, VistaTexto, VistaTexto> casos[] = {
        {"Nome=\"A\"", "", "Registro \"\" sem o atributo \"Nome\""},
        {"Tamanho=\"9\"", "", "Registro \"A\" sem o atributo \"Tamanho\""},
        {"Tamanho=\"9\"", "Tamanho=\"\"", "Registro \"A\", atributo \"Tamanho\": valor inválido \"\""_t},
        {"Tamanho=\"9\"", "Tamanho=\"9x\"", "Registro \"A\", atributo \"Tamanho\": valor inválido \"9x\""_t},
        {"Tamanho=\"9\"", "Tamanho=\"0\"", "Registro \"A\", atributo \"Tamanho\": valor inválido \"0\""_t},
        {"Tamanho=\"9\"", "Tamanho=\"32768\"", "Registro \"A\", atributo \"Tamanho\": valor inválido \"32768\""_t},
        {"Identificador", "identificador", "Registro \"A\" sem o atributo \"Identificador\""},
        {"Nome=\"Data\"", "", "Registro \"A\", Campo \"\" sem o atributo \"Nome\""},
        {"Tipo=\"D\"", "", "Registro \"A\", Campo \"Data\" sem o atributo \"Tipo\""},
        {"Formato=\"AAAAMMDD\"", "", "Registro \"A\", Campo \"Data\" sem o atributo \"Formato\""},
        {"Decimais=\"2\"", "", "Registro \"A\", Campo \"Data\" sem o atributo \"Decimais\""},
        {"Tamanho=\"8\"", "", "Registro \"A\", Campo \"Data\" sem o atributo \"Tamanho\""},
        {"Tamanho=\"8\"", "Tamanho=\"\"",
         "Registro \"A\", Campo \"Data\", atributo \"Tamanho\": valor inválido \"\""_t},
        {"Tamanho=\"8\"", "Tamanho=\"0\"",
         "Registro \"A\", Campo \"Data\", atributo \"Tamanho\": valor inválido \"0\""_t},
        {"Tamanho=\"8\"", "Tamanho=\"-8\"",
         "Registro \"A\", Campo \"Data\", atributo \"Tamanho\": valor inválido \"-8\""_t},
        {"Tamanho=\"8\"", "Tamanho=\"10\"",
         "Registro \"A\", Campo \"Data\", atributo \"Tamanho\": valor inválido \"10\""_t},
        {"Alinhamento=\"1\"", "Alinhamento=\"256\"",
         "Registro \"A\", Campo \"Data\", atributo \"Alinhamento\": valor inválido \"256\""_t},
        {"Alinhamento=\"1\"", "Alinhamento=\"D\"",
         "Registro \"A\", Campo \"Data\", atributo \"Alinhamento\": valor inválido \"D\""_t},
        {"Decimais=\"2\"", "Decimais=\"-1\"",
         "Registro \"A\", Campo \"Data\", atributo \"Decimais\": valor inválido \"-1\""_t},
        {"Decimais=\"2\"", "Decimais=\"256\"",
         "Registro \"A\", Campo \"Data\", atributo \"Decimais\": valor inválido \"256\""_t},
        {"\"Data\"", "\"TIPO\"", "Registro \"A\", Campo \"TIPO\": Campo em duplicidade: TIPO"},
        {"<Campo", "<!-- c --><Campo", "Registro \"A\", Campo: há um nó que não é elemento"_t},
        {"<Campo", "<?p i?><Campo", "Registro \"A\", Campo: há um nó que não é elemento"_t},
        {"<Campo", "solto<Campo", "Registro \"A\", Campo: há um nó que não é elemento"_t},
        {"<Registro", "<!-- c --><Registro", "Registro: há um nó que não é elemento"_t},
        {boa, "nada", "não é XML (byte 4)"_t},
        {boa, declaracao, "não é XML (byte 38)"_t},
        {boa, "", "não é XML (byte 0)"_t},
        {"</Registro>", "", "não é XML (byte 290)"_t},
    };
    for (const auto& [de, para, esperada] : casos)
        EXPECT_EQ(carregar(trocar(boa, de, para)).falha, junta("1 ArquivoRemessaBD: Leiaute inválido: "_t, esperada));
    const Texto registro = boa.substr(boa.find("<Registro"), boa.find("</Arq") - boa.find("<Registro"));
    EXPECT_EQ(carregar(trocar(boa, "</Arq", registro + "</Arq")).falha,
              "457 ArquivoRemessa: Registro em duplicidade: A");
}

TEST(ArquivoRemessaBD, descricaoEnormeOuFundaDemais) {
    const Texto enorme = declaracao + Texto(16 * 1024 * 1024, ' ');
    EXPECT_EQ(carregar(enorme).falha, "1 ArquivoRemessaBD: Leiaute inválido: arquivo grande demais"_t);
    Texto funda;
    for (int nivel = 0; nivel < 200'000; ++nivel)
        funda += "<a>";
    EXPECT_EQ(carregar(declaracao + funda).falha.substr(0, 21), "1 ArquivoRemessaBD: L");
}

/// A description changed at random is loaded or refused; a loaded one reads any line or refuses it.
TEST(ArquivoRemessaBD, bytesAoAcaso) {
    std::mt19937 sorteio(1);
    int carregadas = 0;
    for (int vez = 0; vez < 5000; ++vez) {
        testes::MundoFalso mundo;
        Texto& descricao = mundo.arquivos.conteudo["leiaute.xml"] = boa;
        mundo.arquivos.conteudo["x"] = "A20240131\nA00000000\nA\n";
        for (auto trocas = 1 + sorteio() % 3; trocas > 0; --trocas)
            descricao[sorteio() % descricao.size()] =
                vez % 2 == 0 ? static_cast<char>(sorteio()) : boa[sorteio() % boa.size()];
        const Carga carga = carregar(mundo);
        EXPECT_NE(carga.leiaute == nullptr, carga.falha.empty()) << descricao;
        if (!carga.leiaute) continue;
        ++carregadas;
        carga.leiaute->abrirArquivoEntrada("x");
        for (int linha = 0; linha < 4; ++linha)
            static_cast<void>(textoDaFalha([&] { return carga.leiaute->lerRegistro(true).gerarLinha(); }));
    }
    EXPECT_GT(carregadas, 100);
}

} // namespace
} // namespace quilatador
