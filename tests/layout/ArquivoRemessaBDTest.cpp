#include "layout/ArquivoRemessaBD.h"

#include "support/Falhas.h"
#include "support/Falsos.h"

#include <gtest/gtest.h>

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

Texto niveis(int quantos, VistaTexto marca) {
    Texto todos;
    while (quantos-- > 0)
        todos += marca;
    return todos;
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
          <Registro Nome="B" Tamanho="32767" Identificador="LARGO">
            <Campo Nome="Largo" Tipo="X" Tamanho="32767" Formato="" Decimais="0"/>
          </Registro>
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
                         "B 32767 LARGO\n"
                         "  Largo X0 1-32767  0 nulo\n"_t);
    EXPECT_TRUE(mundo.arquivos.tudoFechado());
    EXPECT_TRUE(mundo.painel.chamadas.empty());
}

TEST(ArquivoRemessaBD, nomesEmQualquerCodificacao) {
    for (const auto& [codificacao, nome] :
         {std::pair("UTF-8"_t, textoDosBytes("A\xC3\xA7\xC3\xA3o")), std::pair("windows-1252"_t, "Ação"_t)}) {
        const Texto descricao = trocar(boa, "UTF-8"_t, codificacao);
        const auto leiaute = carregar(trocar(descricao, "\"Data\""_t, junta("\""_t, nome, "\""_t))).leiaute;
        ASSERT_TRUE(leiaute);
        EXPECT_EQ(leiaute->tiposRegistros()[0]->campos()[1]->nome(), "Ação"_t);
    }
}

TEST(ArquivoRemessaBD, arquivoQueNaoSeAbre) {
    testes::MundoFalso mundo;
    const Carga carga = carregar(mundo);
    EXPECT_EQ(carga.leiaute, nullptr);
    EXPECT_EQ(carga.falha, ""_t);
    EXPECT_EQ(carga.mensagens,
              std::vector{Texto("mensagem [Solvara - Quilatador de Leiaute] Arquivo nao encontrado!"_t)});
    mundo.arquivos.conteudo["leiaute.xml"] = boa;
    mundo.arquivos.falhar(testes::ArquivosEmMemoria::Operacao::Abrir, 1, testes::discoCheio);
    EXPECT_EQ(carregar(mundo).falha, "61 Gravacao: Disco cheio"_t);
}

TEST(ArquivoRemessaBD, outraRaizDaMensagemEFalha) {
    constexpr VistaTexto abertura = "<ArquivoRemessa>"_t;
    const Texto raiz = boa.substr(boa.find(abertura));
    for (const Texto& descricao :
         {raiz, trocar(trocar(boa, "ArquivoRemessa>"_t, "Outra>"_t), "/ArquivoRemessa>"_t, "/Outra>"_t),
          junta(declaracao, "<!-- antes -->"_t, raiz)}) {
        const Carga carga = carregar(descricao);
        EXPECT_EQ(carga.falha, "1 ArquivoRemessaBD: Arquivo XML não corresponde a um arquivo de remessa!"_t);
        EXPECT_EQ(carga.mensagens.size(), 1u);
    }
}

TEST(ArquivoRemessaBD, falhaDizRegistroCampoEAtributo) {
    constexpr VistaTexto registro = R"(Registro "A")";
    constexpr VistaTexto campo = R"(Registro "A", Campo "Data")";
    // An attribute, what it is, and what takes its place: null for none.
    const std::tuple<VistaTexto, VistaTexto, VistaTexto, const char*> casos[] = {
        {registro, "Tamanho", "9", nullptr},
        {registro, "Tamanho", "9", "9x"},
        {registro, "Tamanho", "9", "0"},
        {registro, "Tamanho", "9", "32768"},
        {registro, "Identificador", "Tipo", nullptr},
        {campo, "Formato", "AAAAMMDD", nullptr},
        {campo, "Decimais", "2", "-1"},
        {campo, "Decimais", "2", "256"},
        {campo, "Tamanho", "8", "0"},
        {campo, "Tamanho", "8", "10"},
        {campo, "Alinhamento", "1", "256"},
        {campo, "Alinhamento", "1", "D"},
        {R"(Registro "A", Campo "")", "Nome", "Data", nullptr},
    };
    for (const auto& [onde, atributo, antes, valor] : casos) {
        const Texto novo = valor ? junta(atributo, "=\"", valor, "\"") : Texto();
        const Texto descricao = trocar(boa, junta(" ", atributo, "=\"", antes, "\""), junta(" ", novo));
        EXPECT_EQ(carregar(descricao).falha,
                  junta("1 ArquivoRemessaBD: Leiaute inválido: "_t, onde,
                        valor ? junta(", atributo \"", atributo, "\": valor inválido \""_t, valor, "\"")
                              : junta(" sem o atributo \"", atributo, "\"")));
    }
}

TEST(ArquivoRemessaBD, falhaDizOndeADescricaoNaoServe) {
    const Texto registro = boa.substr(boa.find("<Registro"), boa.find("</Arq") - boa.find("<Registro"));
    const std::tuple<VistaTexto, Texto, VistaTexto> casos[] = {
        {"\"Data\"", "\"TIPO\"", "Registro \"A\", Campo \"TIPO\": Campo em duplicidade: TIPO"},
        {"<Campo", "<!-- c --><Campo", "Registro \"A\", Campo: há um nó que não é elemento"_t},
        {"<Registro", "<!-- c --><Registro", "Registro: há um nó que não é elemento"_t},
        {"</Registro>", "", "não é XML (byte 290)"_t},
        {boa, declaracao + Texto(1024 * 1024, ' '), "arquivo grande demais"},
        {"</ArquivoRemessa>", "</ArquivoRemessa><ArquivoRemessa/>", "há mais de uma raiz"_t},
        {declaracao, R"(<!DOCTYPE a [<!ENTITY e SYSTEM "file:///etc/passwd">]>)", "DOCTYPE não é permitido"_t},
        {"/>\n  </R", junta(">", niveis(15, "<a>"), niveis(15, "</a>"), "</Campo></R"), "elementos em níveis demais"_t},
        {"\"Tipo\"", "\"Tipos\"", "Registro \"A\", atributo \"Identificador\": não há o campo \"Tipos\""_t},
        {"\"8\"", "\"9\"", "Registro \"A\", Campo \"Data\": passa do fim do registro"},
    };
    for (const auto& [de, para, esperada] : casos)
        EXPECT_EQ(carregar(trocar(boa, de, para)).falha, junta("1 ArquivoRemessaBD: Leiaute inválido: "_t, esperada));
    EXPECT_EQ(carregar(trocar(boa, "</Arq", registro + "</Arq")).falha,
              "457 ArquivoRemessa: Registro em duplicidade: A");
    EXPECT_EQ(
        carregar(trocar(boa, "/>\n  </R", junta(">", niveis(14, "<a>"), niveis(14, "</a>"), "</Campo></R"))).falha, "");
    EXPECT_TRUE(carregar(declaracao + niveis(300'000, "<a>"))
                    .falha.starts_with("1 ArquivoRemessaBD: Leiaute inválido: não é XML"_t));
}

} // namespace
} // namespace quilatador
